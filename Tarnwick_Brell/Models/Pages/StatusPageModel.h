#pragma once

#include <memory>
#include <set>

#include <QAbstractListModel>
#include <QStringList>

#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Pages/StatusPageRows.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// Apple's services: what is wrong now, each service's last 90 days, the log of incidents.
class StatusPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(StatusPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* log READ log CONSTANT)
    Q_PROPERTY(QString logText READ logText NOTIFY changed)
    Q_PROPERTY(QList<QString> audiences READ audiences NOTIFY changed)
    Q_PROPERTY(int audience READ audience WRITE setAudience NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QList<QString> dayNames READ dayNames NOTIFY changed)

public:
    explicit StatusPageModel(const DeskStores& stores);
    ~StatusPageModel() override;

    QAbstractListModel* rows() { return &rows_; }
    QAbstractListModel* log() { return &log_; }
    QString logText() const;        ///< "23 in 90 days"
    QStringList audiences() const;  ///< "All 99", "Consumer 64", "Developer 35"
    int audience() const;
    void setAudience(int audience);
    QString words() const { return QString::fromStdString(filter_.words); }
    void setWords(const QString& words);
    /// Of the first day, and of those 30 and 60 days later.
    const QStringList& dayNames() const { return dayNames_; }

    /// What happened to the service of that row on that day, the first being 0.
    Q_INVOKABLE QString dayText(int row, int day) const;
    Q_INVOKABLE bool isService(int row) const;
    Q_INVOKABLE bool isFold(int row) const;
    /// Opens or closes a fold, or fetches an old table again.
    Q_INVOKABLE void activate(int row);
    Q_INVOKABLE void openApplesPage();

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::status); }

protected:
    bool hasBar() const override { return true; }

private:
    /// Loads what the library holds, then shows it.
    void load();
    void update();
    void addTable(std::vector<StatusPageRow>& rows, const kit::StatusPageContent::Table& table);
    void addServices(std::vector<StatusPageRow>& rows, const kit::StatusPageContent::Table& table,
                     bool isOld);
    const kit::StatusPageContent::Service* serviceAt(int row) const;

    kit::StatusHistory history_;
    kit::StatusFilter filter_;
    kit::DayBounds days_;
    kit::StatusPageContent content_;
    std::set<kit::StatusFeed> opened_;
    QStringList dayNames_;
    GadgetListModel<StatusPageRow> rows_;
    GadgetListModel<IncidentLogRow> log_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
