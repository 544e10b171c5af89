#pragma once

#include <QAbstractListModel>
#include <QStringList>

#include "NewsroomKit/Panels/CatalogueContent.h"
#include "Tarnwick_Brell/Models/Pages/TrackerChangeRow.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// An update that Apple offers.
struct OfferRow {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString headingFact MEMBER headingFact)
    Q_PROPERTY(QString platform MEMBER platform)
    Q_PROPERTY(QString version MEMBER version)
    Q_PROPERTY(QString build MEMBER build)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString posted MEMBER posted)
    Q_PROPERTY(QString expires MEMBER expires)
    Q_PROPERTY(bool expiresSoon MEMBER expiresSoon)
    Q_PROPERTY(QString devices MEMBER devices)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};      ///< of the group, above its first row
    QString headingFact{};  ///< "6 offered"
    QString platform{};
    QString version{};
    QString build{};
    bool isNew = false;
    QString posted{};
    QString expires{};
    bool expiresSoon = false;
    QString devices{};
    QString spokenText{};

    bool operator==(const OfferRow&) const = default;
};

/// Apple's update catalogue: a table of what it offers, and what came and went.
class UpdatesPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(UpdatesPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* changes READ changes CONSTANT)
    Q_PROPERTY(QString changesFact READ changesFact NOTIFY changed)
    Q_PROPERTY(QString changesMessage READ changesMessage NOTIFY changed)
    Q_PROPERTY(QList<QString> platforms READ platforms NOTIFY changed)
    Q_PROPERTY(int platform READ platform NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QString nothingShown READ nothingShown NOTIFY changed)

public:
    explicit UpdatesPageModel(const DeskStores& stores);

    GadgetListModel<OfferRow>* rows() { return &rows_; }
    GadgetListModel<TrackerChangeRow>* changes() { return &changes_; }
    const QString& changesFact() const { return changesFact_; }
    /// Instead of changes.
    QString changesMessage() const;
    /// "All 14", then those of the groups.
    const QStringList& platforms() const { return platforms_; }
    int platform() const;
    QString words() const { return QString::fromStdString(filter_.words); }
    /// Instead of rows, when the filter leaves none.
    const QString& nothingShown() const { return nothingShown_; }

    /// Its place in `platforms`.
    Q_INVOKABLE void choosePlatform(int place);
    void setWords(const QString& words);

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::updates); }

protected:
    bool hasBar() const override { return true; }

private:
    void update();

    kit::CatalogueFilter filter_;
    GadgetListModel<OfferRow> rows_;
    GadgetListModel<TrackerChangeRow> changes_;
    QString changesFact_;
    QStringList platforms_;
    QString nothingShown_;
};

}  // namespace app
