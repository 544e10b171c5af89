#pragma once

#include <QAbstractListModel>

#include "NewsroomKit/Panels/CountdownContent.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// An event below the next one.
struct CountdownEventRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString badge MEMBER badge)
    Q_PROPERTY(QString date MEMBER date)
    Q_PROPERTY(QString days MEMBER days)
    Q_PROPERTY(bool isReleased MEMBER isReleased)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString title{};
    QString badge{};  ///< of an anniversary: how many years
    QString date{};   ///< "18 May"; without a date what the service says instead
    QString days{};   ///< whole days from today; "?" without a date
    bool isReleased = false;
    QString spokenText{};

    bool operator==(const CountdownEventRow&) const = default;
};

/// The days until the next event of Apple's calendar, then the other events.
class CountdownPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(CountdownPanelModel)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(bool hasNext READ hasNext NOTIFY changed)
    Q_PROPERTY(QString days READ days NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString time READ time NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    CountdownPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    bool hasNext() const { return !title_.isEmpty(); }
    const QString& days() const { return days_; }  ///< "20 days", "Tomorrow", "Today"
    const QString& title() const { return title_; }
    const QString& time() const { return time_; }
    GadgetListModel<CountdownEventRow>* rows() { return &rows_; }

    void tick() override { refresh(); }
    void retry() override { trackers().refresh(Tracker::events); }

private:
    void refresh();
    void setNext(const std::optional<kit::CountdownRow>& event);
    CountdownEventRow rowOf(const kit::CountdownRow& event) const;

    std::vector<std::string> terms_;
    QString days_;
    QString title_;
    QString time_;
    GadgetListModel<CountdownEventRow> rows_;
};

}  // namespace app
