#pragma once

#include <QAbstractListModel>
#include <QStringList>

#include "NewsroomKit/Panels/SoftwarePageContent.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// What a platform runs now.
struct PlatformCard {
    Q_GADGET
    Q_PROPERTY(QString platform MEMBER platform)
    Q_PROPERTY(QString version MEMBER version)
    Q_PROPERTY(QString build MEMBER build)
    Q_PROPERTY(QString age MEMBER age)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString betaVersion MEMBER betaVersion)
    Q_PROPERTY(QString betaBuild MEMBER betaBuild)
    Q_PROPERTY(QString betaAge MEMBER betaAge)
    Q_PROPERTY(QString nextBeta MEMBER nextBeta)
    Q_PROPERTY(bool isChosen MEMBER isChosen)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString platform{};
    QString version{};
    QString build{};
    QString age{};  ///< "18 days"
    bool isNew = false;
    QString betaVersion{};  ///< or that there is none
    QString betaBuild{};
    QString betaAge{};
    QString nextBeta{};  ///< "Next beta usual in 11 days"
    bool isChosen = false;
    QString spokenText{};

    bool operator==(const PlatformCard&) const = default;
};

/// A day, or a release of that day.
struct ReleaseTableRow {
    Q_GADGET
    Q_PROPERTY(bool isDay MEMBER isDay)
    Q_PROPERTY(QString platform MEMBER platform)
    Q_PROPERTY(QString version MEMBER version)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString build MEMBER build)
    Q_PROPERTY(QString channel MEMBER channel)
    Q_PROPERTY(bool isGeneral MEMBER isGeneral)
    Q_PROPERTY(QString after MEMBER after)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString seen MEMBER seen)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    bool isDay = false;
    QString platform{};  ///< of a day: its name
    QString version{};
    bool isNew = false;
    QString build{};
    QString channel{};  ///< "Release", "Beta", "RC"
    bool isGeneral = false;
    QString after{};  ///< the time since the one before of the platform and channel
    QString title{};  ///< as the service names it
    QString seen{};   ///< when the desk first saw it
    QString spokenText{};
    // Not shown:
    QString link{};
    QString plainLine{};  ///< for the clipboard

    bool operator==(const ReleaseTableRow&) const = default;
};

/// What each platform runs, and all releases that the desk has seen.
class SoftwarePageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SoftwarePageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* cards READ cards CONSTANT)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(int channel READ channel WRITE setChannel NOTIFY changed)
    Q_PROPERTY(QString platform READ platform WRITE setPlatform NOTIFY changed)
    Q_PROPERTY(QList<QString> majors READ majors NOTIFY changed)
    Q_PROPERTY(QString major READ major WRITE setMajor NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY rowChanged)

public:
    explicit SoftwarePageModel(const DeskStores& stores);

    QAbstractListModel* cards() { return &cards_; }
    QAbstractListModel* rows() { return &rows_; }
    int channel() const { return filter_.channel ? 1 + static_cast<int>(*filter_.channel) : 0; }
    void setChannel(int channel);  ///< 0 for both
    QString platform() const { return QString::fromStdString(filter_.platform); }
    void setPlatform(const QString& platform);
    const QStringList& majors() const { return majors_; }
    QString major() const { return QString::fromStdString(filter_.major); }
    void setMajor(const QString& major);
    QString words() const { return QString::fromStdString(filter_.words); }
    void setWords(const QString& words);
    /// The selected row; -1 for none.
    int row() const { return row_; }
    void setRow(int row);

    /// Filters by the card's platform; the chosen one shows all again.
    Q_INVOKABLE void toggleCard(int card);
    Q_INVOKABLE bool isRelease(int row) const;
    Q_INVOKABLE void openRow(int row);
    Q_INVOKABLE void copyRow(int row);

    bool offers(Action action) const override;
    void perform(Action action) override;
    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::releases); }

signals:
    void rowChanged();

protected:
    bool hasBar() const override { return true; }

private:
    void update();

    kit::SoftwareFilter filter_;
    QStringList majors_;
    int row_ = -1;
    GadgetListModel<PlatformCard> cards_;
    GadgetListModel<ReleaseTableRow> rows_;
};

}  // namespace app
