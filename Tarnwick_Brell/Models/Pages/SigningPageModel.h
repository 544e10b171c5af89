#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QStringList>

#include "NewsroomKit/Panels/SigningMatrix.h"
#include "Tarnwick_Brell/Models/Pages/TrackerChangeRow.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A build, across the matrix.
struct SigningColumn {
    Q_GADGET
    Q_PROPERTY(QString version MEMBER version)
    Q_PROPERTY(QString build MEMBER build)
    Q_PROPERTY(QString released MEMBER released)
    Q_PROPERTY(bool isSigned MEMBER isSigned)

public:
    QString version{};
    QString build{};
    QString released{};
    bool isSigned = false;

    bool operator==(const SigningColumn&) const = default;
};

/// What a cell of the matrix shows.
namespace SigningCell {

Q_NAMESPACE
QML_ELEMENT

/// With the numbers of kit::SigningMark.
enum Mark { NeverOffered, NotKnown, NotSigned, Stopped, Signed };
Q_ENUM_NS(Mark)

}  // namespace SigningCell

/// A device, down the matrix.
struct SigningDeviceRow {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString identifier MEMBER identifier)
    Q_PROPERTY(QList<int> marks MEMBER marks)
    Q_PROPERTY(QString trouble MEMBER trouble)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< of the group, above its first device
    QString name{};
    QString identifier{};  ///< empty when it is the name
    QList<int> marks{};    ///< SigningCell::Mark, a cell each
    QString trouble{};     ///< why the row is no newer
    QString spokenText{};

    bool operator==(const SigningDeviceRow&) const = default;
};

/// Which builds Apple signs for which devices, and the changes of that.
class SigningPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SigningPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* columns READ columns CONSTANT)
    Q_PROPERTY(int columnCount READ columnCount NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* changes READ changes CONSTANT)
    Q_PROPERTY(QString changesFact READ changesFact NOTIFY changed)
    Q_PROPERTY(QString changesMessage READ changesMessage NOTIFY changed)
    Q_PROPERTY(QList<QString> families READ families NOTIFY changed)
    Q_PROPERTY(int family READ family NOTIFY changed)
    Q_PROPERTY(QString devicesText READ devicesText NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QString nothingShown READ nothingShown NOTIFY changed)

public:
    explicit SigningPageModel(const DeskStores& stores);

    GadgetListModel<SigningColumn>* columns() { return &columns_; }
    int columnCount() const { return columns_.rowCount(); }
    GadgetListModel<SigningDeviceRow>* rows() { return &rows_; }
    GadgetListModel<TrackerChangeRow>* changes() { return &changes_; }
    const QString& changesFact() const { return changesFact_; }
    /// Instead of changes.
    QString changesMessage() const;
    /// Empty when all devices are of one family.
    const QStringList& families() const { return families_; }
    int family() const { return family_; }
    QString devicesText() const;  ///< "Devices: 16 chosen"
    QString words() const { return QString::fromStdString(filter_.words); }
    /// Instead of the matrix, when the filter leaves nothing of it.
    QString nothingShown() const;

    /// Its place in `families`.
    Q_INVOKABLE void chooseFamily(int place);
    void setWords(const QString& words);
    Q_INVOKABLE void chooseDevices() { emit sheetWanted(QStringLiteral("signing-devices")); }
    /// "Signed, since 29 Sep"; empty outside of the matrix.
    Q_INVOKABLE QString cellText(int row, int column) const;
    /// The same with the device and the build, for those who do not see where it stands.
    Q_INVOKABLE QString spokenCell(int row, int column) const;

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::signing); }

protected:
    bool hasBar() const override { return true; }

private:
    void update();
    void showMatrix();
    void showChanges();

    kit::SigningFilter filter_;
    kit::SigningMatrix matrix_;
    GadgetListModel<SigningColumn> columns_;
    GadgetListModel<SigningDeviceRow> rows_;
    GadgetListModel<TrackerChangeRow> changes_;
    QString changesFact_;
    QStringList families_;
    int family_ = 0;
};

}  // namespace app
