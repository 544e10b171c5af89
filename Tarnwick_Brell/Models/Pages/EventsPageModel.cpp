#include "Tarnwick_Brell/Models/Pages/EventsPageModel.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

#include "NewsroomKit/Trackers/Events/CalendarFile.h"
#include "Tarnwick_Brell/Desk/RefreshCadence.h"
#include "Tarnwick_Brell/Models/Files/SavedFile.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/CalendarDays.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"

namespace app {

namespace {

using kit::Instant;

QDate dateOf(Instant then) {
    const auto time = std::chrono::floor<std::chrono::milliseconds>(then.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(time.count()).date();
}

QString monthName(const QDate& date, const QDate& today) {
    const bool isThisYear = date.year() == today.year();
    return QLocale().toString(date,
                              isThisYear ? QStringLiteral("MMMM") : QStringLiteral("MMMM yyyy"));
}

/// Names of files say what they hold and work everywhere.
QString fileNameOf(const kit::AppleCalendarEvent& event) {
    static const QRegularExpression others(QStringLiteral("[^A-Za-z0-9]+"));
    auto name = titleText(event.title, 60).replace(others, QStringLiteral("-"));
    while (name.startsWith(u'-')) name.remove(0, 1);
    while (name.endsWith(u'-')) name.chop(1);
    return name.isEmpty() ? QStringLiteral("event") : name;
}

}  // namespace

EventsPageModel::EventsPageModel(const DeskStores& stores) : PageModel(stores, tr("Events")) {
    connect(&trackers(), &TrackerStore::eventsChanged, this, &EventsPageModel::update);
    connect(&news(), &NewsDesk::loaded, this, &EventsPageModel::update);
    update();
}

void EventsPageModel::update() {
    const auto moment = now();
    const auto& wire = news().stories();
    content_ =
        kit::eventsContent(trackers().events(), words_,
                           {.daysUntil = [&](Instant then) { return daysBetween(moment, then); },
                            .storiesOnDay =
                                [&](Instant then) {
                                    const auto day = lastDays(then, 1);
                                    return wire.firstPlaceBelow(firstStoryNumber(day[0])) -
                                           wire.firstPlaceBelow(firstStoryNumber(day[1]));
                                }});
    showNext();
    std::vector<EventTableRow> rows;
    const auto heading = [&rows](const QString& title) {
        rows.push_back({.isHeading = true, .title = title, .spokenText = title});
    };
    if (part_ == All || part_ == Coming) addList(rows, content_.coming);
    if (!content_.past.empty() && (part_ == All || part_ == Past)) {
        heading(tr("Past"));
        for (const auto& event : content_.past) rows.push_back(rowOf(event));
    }
    if (!content_.anniversaries.empty() && (part_ == All || part_ == Anniversaries)) {
        heading(tr("Anniversaries"));
        for (const auto& event : content_.anniversaries) rows.push_back(rowOf(event));
    }
    rows_.setRows(std::move(rows));
    if (row_ >= rows_.rowCount()) setRow(-1);
    auto condition = conditionOf(content_.condition, tr("No date of Apple's is known."));
    const auto& fetchedAt = content_.condition.fetchedAt;
    condition.fact =
        fetchedAt ? tr("Calendar of %1").arg(momentText(*fetchedAt, moment)) : QString();
    setCondition(std::move(condition));
}

void EventsPageModel::addList(std::vector<EventTableRow>& rows,
                              const std::vector<Event>& events) const {
    const auto today = dateOf(now());
    QString lastMonth;
    for (const auto& event : events) {
        const auto month =
            event.row.starts ? monthName(dateOf(*event.row.starts), today) : tr("Without a date");
        if (month != lastMonth)
            rows.push_back({.isHeading = true, .title = month, .spokenText = month});
        lastMonth = month;
        rows.push_back(rowOf(event));
    }
}

EventTableRow EventsPageModel::rowOf(const Event& event) const {
    const auto& known = event.row;
    EventTableRow row{.title = titleText(event.event.title),
                      .isReleased = known.isReleased,
                      .isPast = known.starts && (known.days < 0 || known.isReleased),
                      .id = event.event.id};
    QStringList detail;
    if (known.starts) {
        const auto date = dateOf(*known.starts);
        row.day = QString::number(date.day());
        row.weekday = row.isPast || known.isAnniversary
                          ? QLocale().toString(date, QStringLiteral("MMM"))
                          : QLocale().toString(date, QStringLiteral("ddd"));
        row.days = QLocale().toString(known.days);
        if (row.isPast || known.days == 0) row.days = daysAwayText(known.days);
        if (!kit::isWholeDay(event.event))
            detail << tr("%1 your time").arg(clockText(*known.starts));
    } else {
        row.day = tr("?");
        row.days = tr("?");
    }
    if (known.isExpected) row.badge = tr("Expected");
    if (!known.starts) row.badge = tr("Rumored");
    if (known.isAnniversary && known.years > 0)
        row.badge = known.years == 1 ? tr("1 year") : tr("%n years", nullptr, known.years);
    if (!known.window.empty()) detail << titleText(known.window, 60);
    const auto stories = static_cast<int>(event.stories);
    if (stories > 0) detail << tr("%n stories that day", nullptr, stories);
    if (!event.event.publisher.empty())
        detail << tr("from %1").arg(titleText(event.event.publisher));
    row.detail = detail.join(QStringLiteral(" · "));
    const auto when = known.starts ? dayText(*known.starts, now()) : tr("no date is known");
    row.spokenText = QStringList{row.title, when, row.badge, row.detail}.join(QStringLiteral(", "));
    return row;
}

void EventsPageModel::showNext() {
    nextFigure_ = nextUnit_ = nextTitle_ = nextTime_ = nextSource_ = QString();
    if (!content_.next) return;
    const auto& [event, known, stories] = *content_.next;
    nextFigure_ = known.days == 0 ? tr("Today") : QLocale().toString(known.days);
    nextUnit_ = known.days == 0 ? QString() : known.days == 1 ? tr("day") : tr("days");
    nextTitle_ = titleText(event.title);
    const auto day = QLocale().toString(dateOf(*known.starts), QStringLiteral("dddd d MMMM yyyy"));
    nextTime_ = known.isExpected ? tr("Expected around %1").arg(day)
                                 : tr("%1, %2 your time").arg(day, clockText(*known.starts));
    QStringList source;
    if (!known.window.empty()) source << titleText(known.window);
    if (!event.publisher.empty()) source << tr("from %1").arg(titleText(event.publisher));
    nextSource_ = source.join(QStringLiteral(" · "));
}

void EventsPageModel::setPart(int part) {
    part_ = part;
    setRow(-1);
    update();
}

void EventsPageModel::setWords(const QString& words) {
    words_ = words.toStdString();
    setRow(-1);
    update();
}

void EventsPageModel::setRow(int row) {
    if (row_ == row) return;
    row_ = row;
    emit rowChanged();
    emit changed();
}

const EventsPageModel::Event* EventsPageModel::eventAt(int row) const {
    const auto* found = rows_.row(row);
    return found && !found->isHeading ? content_.find(found->id) : nullptr;
}

const EventsPageModel::Event* EventsPageModel::chosen() const {
    const auto* event = eventAt(row_);
    if (!event && content_.next) event = &*content_.next;
    return event && event->row.starts ? event : nullptr;
}

bool EventsPageModel::isEvent(int row) const { return eventAt(row) != nullptr; }

void EventsPageModel::openRow(int row) {
    const auto* event = eventAt(row);
    const auto link = event ? openableLink(event->event.source) : QString();
    if (!link.isEmpty()) openLink(link);
}

bool EventsPageModel::canGoLive() const {
    const auto* event = chosen();
    return event && canBeNext(event->row);
}

void EventsPageModel::goLive() {
    if (!canGoLive()) return;
    news().goLive(now() + RefreshCadence::kLongestLive);
    emit noticed(tr("The desk is live: sources are fetched every minute."));
}

void EventsPageModel::saveCalendar() {
    const auto* event = chosen();
    if (!event) return;
    const auto date = dateOf(event->event.starts).toString(QStringLiteral("yyyyMMdd"));
    const auto text = kit::calendarFile(event->event, date.toStdString(), now());
    const auto file = SavedFile::write(fileNameOf(event->event), QStringLiteral("ics"), text);
    emit noticed(file.isSaved() ? tr("Saved as %1.").arg(file.path)
                                : tr("Can’t save %1: %2").arg(file.path, file.error));
}

bool EventsPageModel::offers(Action action) const {
    return (action == DeskAction::GoLive && canGoLive()) ||
           (action == DeskAction::SaveCalendar && canSave());
}

void EventsPageModel::perform(Action action) {
    if (action == DeskAction::GoLive) goLive();
    if (action == DeskAction::SaveCalendar) saveCalendar();
}

}  // namespace app
