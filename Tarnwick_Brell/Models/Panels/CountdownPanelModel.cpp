#include "Tarnwick_Brell/Models/Panels/CountdownPanelModel.h"

#include <algorithm>

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

#include "NewsroomKit/Trackers/Events/MarkedEvents.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::AppleCalendarEvent;
using kit::Instant;

constexpr int kDaysShownAfter = 2;

/// The date of a rumor is where the service files it; what is known of it is the window.
bool hasDate(const AppleCalendarEvent& event) {
    return event.status != "rumored" && event.starts > Instant();
}

bool isOver(const AppleCalendarEvent& event, Instant now) {
    return hasDate(event) && daysBetween(now, event.starts) < -kDaysShownAfter;
}

bool canLead(const AppleCalendarEvent& event, Instant now) {
    return hasDate(event) && !event.isReleased() && !event.isAnniversary() &&
           daysBetween(now, event.starts) >= 0;
}

QString longDay(Instant then, Instant now) {
    const auto milliseconds =
        std::chrono::floor<std::chrono::milliseconds>(then.time_since_epoch());
    const auto date = QDateTime::fromMSecsSinceEpoch(milliseconds.count()).date();
    const auto day = QLocale().toString(date, QStringLiteral("ddd d MMMM"));
    // Within eleven months a month is enough.
    constexpr int clear = 330;
    return daysBetween(now, then) < clear ? day : day + u' ' + QString::number(date.year());
}

/// "18 years" of "App Store, 18th anniversary" and of "Anniversary: 18 years of the App Store".
QString yearsOf(const QString& title) {
    static const QRegularExpression number(
        QStringLiteral("\\b(\\d{1,3})(?:st|nd|rd|th)?[ -](?:years?|anniversary)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    const auto found = number.match(title);
    const auto years = found.captured(1).toInt();
    if (years == 0) return CountdownPanelModel::tr("Anniversary");
    return years == 1 ? CountdownPanelModel::tr("1 year")
                      : CountdownPanelModel::tr("%n years", nullptr, years);
}

}  // namespace

CountdownPanelModel::CountdownPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel), terms_(panel.options.eventTerms) {
    connect(&trackers(), &TrackerStore::eventsChanged, this, &CountdownPanelModel::look);
    look();
}

void CountdownPanelModel::look() {
    const auto& reading = trackers().events();
    auto condition = conditionOf(reading);
    std::vector<CountdownRow> rows;
    lead(nullptr);
    if (reading.value) {
        auto events = kit::namedEvents(*reading.value, terms_);
        std::erase_if(events, [&](const auto& event) { return isOver(event, now()); });
        const auto next =
            std::ranges::find_if(events, [&](const auto& event) { return canLead(event, now()); });
        if (next != events.end()) {
            lead(&*next);
            events.erase(next);
        }
        for (const auto& event : events) rows.push_back(rowOf(event));
    }
    if (condition.state == Ready && !hasNext() && rows.empty()) {
        condition.state = Empty;
        condition.message = terms_.empty() ? tr("No date of Apple's is known.")
                                           : tr("No date is known of what this panel waits for.");
    }
    rows_.setRows(std::move(rows));
    become(std::move(condition));
}

void CountdownPanelModel::lead(const AppleCalendarEvent* event) {
    if (!event) {
        days_ = title_ = time_ = QString();
        return;
    }
    const auto days = daysBetween(now(), event->starts);
    days_ = days == 0 ? tr("Today") : days == 1 ? tr("Tomorrow") : tr("%n days", nullptr, days);
    title_ = titleText(event->title);
    const auto day = longDay(event->starts, now());
    time_ = event->status == "expected" ? tr("Expected around %1").arg(day)
                                        : tr("%1, %2 your time").arg(day, clockText(event->starts));
}

CountdownRow CountdownPanelModel::rowOf(const AppleCalendarEvent& event) const {
    CountdownRow row{.title = titleText(event.title), .isReleased = event.isReleased()};
    if (event.isAnniversary()) row.badge = yearsOf(row.title);
    QString when;
    if (hasDate(event)) {
        const auto days = daysBetween(now(), event.starts);
        row.date = days == 0    ? tr("Today")
                   : days == 1  ? tr("Tomorrow")
                   : days == -1 ? tr("Yesterday")
                                : shortDayText(event.starts, now());
        row.days = QLocale().toString(days);
        when = days > 1 ? tr("%1, in %n days", nullptr, days).arg(row.date) : row.date;
    } else {
        row.date = titleText(event.window, 30);
        row.days = tr("?");
        when = tr("no date is known");
    }
    row.spokenText = (row.isReleased ? tr("%1, %2, released") : tr("%1, %2")).arg(row.title, when);
    return row;
}

}  // namespace app
