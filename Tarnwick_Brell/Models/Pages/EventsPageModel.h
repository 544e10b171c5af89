#pragma once

#include <QAbstractListModel>

#include "NewsroomKit/Panels/EventsContent.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A month or another heading, or an event.
struct EventTableRow {
    Q_GADGET
    Q_PROPERTY(bool isHeading MEMBER isHeading)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString day MEMBER day)
    Q_PROPERTY(QString weekday MEMBER weekday)
    Q_PROPERTY(QString badge MEMBER badge)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString days MEMBER days)
    Q_PROPERTY(bool isReleased MEMBER isReleased)
    Q_PROPERTY(bool isPast MEMBER isPast)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    bool isHeading = false;
    QString title{};
    QString day{};      ///< "23"; "?" without a date
    QString weekday{};  ///< of another year the month with the year
    QString badge{};    ///< that it is expected or rumored; of an anniversary its years
    QString detail{};
    QString days{};  ///< until then, or since
    bool isReleased = false;
    bool isPast = false;
    QString spokenText{};
    std::string id{};

    bool operator==(const EventTableRow&) const = default;
};

/// Apple's calendar: what comes next, the months, what is over, anniversaries.
class EventsPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(EventsPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(bool hasNext READ hasNext NOTIFY changed)
    Q_PROPERTY(QString nextFigure MEMBER nextFigure_ NOTIFY changed)
    Q_PROPERTY(QString nextUnit MEMBER nextUnit_ NOTIFY changed)
    Q_PROPERTY(QString nextTitle MEMBER nextTitle_ NOTIFY changed)
    Q_PROPERTY(QString nextTime MEMBER nextTime_ NOTIFY changed)
    Q_PROPERTY(QString nextSource MEMBER nextSource_ NOTIFY changed)
    Q_PROPERTY(int part READ part WRITE setPart NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY rowChanged)
    Q_PROPERTY(bool canGoLive READ canGoLive NOTIFY changed)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed)

public:
    /// The parts of the list, by their place in the switch.
    enum Part { All, Coming, Past, Anniversaries };
    Q_ENUM(Part)

    explicit EventsPageModel(const DeskStores& stores);

    QAbstractListModel* rows() { return &rows_; }
    bool hasNext() const { return content_.next.has_value(); }
    int part() const { return part_; }
    void setPart(int part);
    QString words() const { return QString::fromStdString(words_); }
    void setWords(const QString& words);
    /// The selected row; -1 for none: then actions are about the next event.
    int row() const { return row_; }
    void setRow(int row);
    bool canGoLive() const;
    bool canSave() const { return chosen() != nullptr; }

    Q_INVOKABLE bool isEvent(int row) const;
    /// The page that the date comes from.
    Q_INVOKABLE void openRow(int row);
    Q_INVOKABLE void goLive();
    /// Writes the chosen event into the folder for downloads.
    Q_INVOKABLE void saveCalendar();

    bool offers(Action action) const override;
    void perform(Action action) override;
    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::events); }

signals:
    void rowChanged();

protected:
    bool hasBar() const override { return true; }

private:
    using Event = kit::EventsContent::Event;

    void update();
    void showNext();
    void addList(std::vector<EventTableRow>& rows, const std::vector<Event>& events) const;
    EventTableRow rowOf(const Event& event) const;
    const Event* eventAt(int row) const;
    const Event* chosen() const;

    kit::EventsContent content_;
    std::string words_;
    int part_ = All;
    int row_ = -1;
    QString nextFigure_;
    QString nextUnit_;
    QString nextTitle_;
    QString nextTime_;
    QString nextSource_;
    GadgetListModel<EventTableRow> rows_;
};

}  // namespace app
