#include "Tarnwick_Brell/Models/Pages/StatusPageRows.h"

#include <cmath>

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::Instant;
using kit::ServiceDay;
using Page = kit::StatusPageContent;

struct StatusPage {
    Q_DECLARE_TR_FUNCTIONS(StatusPage)
};

/// "09:38 to 11:43", "from 15:38"; the day is named where it is not the incident's.
QString spanOf(std::optional<Instant> from, std::optional<Instant> to) {
    if (from && to) return StatusPage::tr("%1 to %2").arg(clockText(*from), clockText(*to));
    if (from) return StatusPage::tr("from %1").arg(clockText(*from));
    return {};
}

QString timesOf(const Page::Incident& incident, Instant now) {
    const auto& logged = incident.logged;
    const auto apple =
        spanOf(logged.started, incident.time.isOngoing ? std::nullopt : logged.ended);
    const auto ours = spanOf(logged.firstSeen, logged.endedSeen);
    // It was over when the desk first saw it.
    const auto seen = logged.endedSeen == logged.firstSeen
                          ? StatusPage::tr("seen %1").arg(momentText(logged.firstSeen, now))
                          : StatusPage::tr("seen %1").arg(ours);
    return apple.isEmpty() ? seen : StatusPage::tr("Apple %1 · %2").arg(apple, seen);
}

QString shareText(std::optional<double> share) {
    if (!share) return {};
    // Rounded down, so that only a service without any incident has 100 %.
    const auto percent = std::floor(*share * 10'000) / 100;
    const int digits = percent >= 100 ? 0 : 2;
    return StatusPage::tr("%1 %").arg(QLocale().toString(percent, 'f', digits));
}

QString lastText(const Page::Service& service, Instant now) {
    if (service.problem) return StatusPage::tr("now");
    if (service.incidents.empty()) return {};
    const auto& time = service.incidents.front().time;
    const auto day = shortDayText(time.begin, now);
    return time.end > time.begin
               ? StatusPage::tr("%1, %2").arg(day, spanText(time.end - time.begin))
               : day;
}

QString levelText(kit::ProblemLevel level) { return labelText(label(level)); }

QString incidentOnDay(const Page::Incident& incident, Instant from, Instant to) {
    const auto kind = levelText(incident.level);
    const auto& time = incident.time;
    const auto lasted = spanText(time.end - time.begin);
    if (time.end <= time.begin) return StatusPage::tr("%1 at %2").arg(kind, clockText(time.begin));
    if (time.isOngoing && time.end < to)
        return StatusPage::tr("%1 since %2, %3").arg(kind, clockText(time.begin), lasted);
    const bool beginsBefore = time.begin<from, endsAfter = time.end> to;
    if (beginsBefore && endsAfter) return StatusPage::tr("%1 all day").arg(kind);
    if (beginsBefore)
        return StatusPage::tr("%1 until %2, %3").arg(kind, clockText(time.end), lasted);
    if (endsAfter) return StatusPage::tr("%1 from %2, %3").arg(kind, clockText(time.begin), lasted);
    return StatusPage::tr("%1 %2 to %3, %4")
        .arg(kind, clockText(time.begin), clockText(time.end), lasted);
}

}  // namespace

std::vector<IncidentLogRow> logRows(const std::vector<Page::Incident>& log, Instant now) {
    std::vector<IncidentLogRow> rows;
    QString lastDay;
    for (const auto& incident : log) {
        const auto days = daysBetween(now, incident.time.begin);
        const auto day = days == 0 ? StatusPage::tr("Today") : dayText(incident.time.begin, now);
        if (day != lastDay) rows.push_back({.isDay = true, .title = day, .spokenText = day});
        lastDay = day;
        const auto& time = incident.time;
        IncidentLogRow row{.title = titleText(incident.logged.service),
                           .level = levelOf(incident.level),
                           .levelLabel = levelText(incident.level),
                           .message = bodyText(incident.logged.message),
                           .times = timesOf(incident, now)};
        if (time.end > time.begin) row.duration = spanText(time.end - time.begin);
        row.spokenText =
            QStringList{row.title, row.levelLabel, row.duration, row.message, row.times}.join(
                QStringLiteral(", "));
        rows.push_back(std::move(row));
    }
    return rows;
}

StatusPageRow problemRow(const Page::Problem& problem, Instant now) {
    const auto& incident = problem.incident;
    StatusPageRow row{.kind = StatusRowKind::Problem,
                      .title = titleText(incident.service),
                      .subject = titleText(incident.service),
                      .message = bodyText(incident.message),
                      .isUp = false,
                      .level = levelOf(incident.level),
                      .levelLabel = levelText(incident.level)};
    if (incident.started && incident.lasted) {
        row.detail = StatusPage::tr("Since %1, %2")
                         .arg(momentText(*incident.started, now), spanText(*incident.lasted));
    }
    QStringList facts;
    if (incident.usersAffected)
        facts << StatusPage::tr("Apple says: %1").arg(titleText(*incident.usersAffected));
    if (problem.firstSeen)
        facts << StatusPage::tr("Seen by this desk %1").arg(momentText(*problem.firstSeen, now));
    row.facts = facts.join(QStringLiteral(" · "));
    row.spokenText =
        QStringList{row.title, row.levelLabel, row.detail, row.message, row.facts}.join(
            QStringLiteral(", "));
    return row;
}

StatusPageRow serviceRow(const Page::Service& service, Instant now) {
    StatusPageRow row{.kind = StatusRowKind::Service,
                      .title = titleText(service.name),
                      .subject = titleText(service.name),
                      .isUp = !service.problem,
                      .share = shareText(service.share),
                      .last = lastText(service, now)};
    for (const auto day : service.days) row.days.push_back(static_cast<int>(day));
    if (service.problem) {
        row.level = levelOf(*service.problem);
        row.levelLabel = levelText(*service.problem);
    }
    QStringList spoken{row.title, service.problem ? row.levelLabel : StatusPage::tr("up")};
    if (!row.share.isEmpty()) spoken << StatusPage::tr("%1 of the watched time").arg(row.share);
    if (!row.last.isEmpty()) spoken << StatusPage::tr("last incident: %1").arg(row.last);
    row.spokenText = spoken.join(QStringLiteral(", "));
    return row;
}

QString serviceDayText(const Page::Service& service, std::size_t day, const kit::DayBounds& days,
                       Instant now) {
    if (day >= service.days.size()) return {};
    const auto [from, to] = std::pair(days[day], days[day + 1]);
    const auto name = to > now ? StatusPage::tr("Today") : dayText(from, now);
    QStringList parts{name};
    for (const auto& incident : service.incidents) {
        if (incident.time.touches(from, to)) parts << incidentOnDay(incident, from, to);
    }
    if (service.days[day] == ServiceDay::up) parts << StatusPage::tr("Up");
    if (service.days[day] == ServiceDay::unknown)
        parts << StatusPage::tr("No data: the desk was not watching");
    return parts.join(QStringLiteral(" · "));
}

}  // namespace app
