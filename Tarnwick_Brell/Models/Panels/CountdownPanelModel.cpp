#include "Tarnwick_Brell/Models/Panels/CountdownPanelModel.h"

#include <QDateTime>
#include <QLocale>

#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::Instant;

QString longDay(Instant then, Instant now) {
    const auto milliseconds =
        std::chrono::floor<std::chrono::milliseconds>(then.time_since_epoch());
    const auto date = QDateTime::fromMSecsSinceEpoch(milliseconds.count()).date();
    const auto day = QLocale().toString(date, QStringLiteral("ddd d MMMM"));
    // Within eleven months the name of the month is enough.
    constexpr int clear = 330;
    return daysBetween(now, then) < clear ? day : day + u' ' + QString::number(date.year());
}

QString badgeOf(const kit::CountdownRow& event) {
    if (!event.isAnniversary) return {};
    if (event.years == 0) return CountdownPanelModel::tr("Anniversary");
    return event.years == 1 ? CountdownPanelModel::tr("1 year")
                            : CountdownPanelModel::tr("%n years", nullptr, event.years);
}

}  // namespace

CountdownPanelModel::CountdownPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel), terms_(panel.options.eventTerms) {
    connect(&trackers(), &TrackerStore::eventsChanged, this, &CountdownPanelModel::refresh);
    refresh();
}

void CountdownPanelModel::refresh() {
    const auto& reading = trackers().events();
    auto condition = conditionOf(reading);
    kit::CountdownContent content;
    if (reading.value) {
        content = kit::countdown(*reading.value, terms_,
                                 [this](Instant then) { return daysBetween(now(), then); });
    }
    setNext(content.next);
    std::vector<CountdownEventRow> rows;
    for (const auto& event : content.others) rows.push_back(rowOf(event));
    if (condition.state == Ready && content.isEmpty()) {
        condition.state = Empty;
        condition.message = noRowText(kit::PanelKind::countdown);
    }
    rows_.setRows(std::move(rows));
    setCondition(std::move(condition));
}

void CountdownPanelModel::setNext(const std::optional<kit::CountdownRow>& event) {
    if (!event) {
        days_ = title_ = time_ = QString();
        return;
    }
    const auto days = event->days;
    days_ = days == 0 ? tr("Today") : days == 1 ? tr("Tomorrow") : tr("%n days", nullptr, days);
    title_ = titleText(event->title);
    const auto day = longDay(*event->starts, now());
    time_ = event->isExpected ? tr("Expected around %1").arg(day)
                              : tr("%1, %2 your time").arg(day, clockText(*event->starts));
}

CountdownEventRow CountdownPanelModel::rowOf(const kit::CountdownRow& event) const {
    CountdownEventRow row{
        .title = titleText(event.title), .badge = badgeOf(event), .isReleased = event.isReleased};
    QString when;
    if (event.starts) {
        const auto days = event.days;
        row.date = days == 0    ? tr("Today")
                   : days == 1  ? tr("Tomorrow")
                   : days == -1 ? tr("Yesterday")
                                : shortDayText(*event.starts, now());
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
