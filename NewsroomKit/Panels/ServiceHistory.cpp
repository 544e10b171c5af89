#include "NewsroomKit/Panels/ServiceHistory.h"

#include <algorithm>

namespace kit {

namespace {

ServiceDay dayOf(ProblemLevel level) {
    switch (level) {
        case ProblemLevel::maintenance: return ServiceDay::maintenance;
        case ProblemLevel::issue: return ServiceDay::issue;
        case ProblemLevel::outage: return ServiceDay::outage;
    }
    return ServiceDay::issue;
}

/// Times that do not overlap, in order.
std::vector<WatchedSpan> downTimes(const std::vector<LoggedIncident>& incidents, Instant now) {
    std::vector<WatchedSpan> times;
    for (const auto& incident : incidents) {
        if (problemLevel(incident.kind) == ProblemLevel::maintenance) continue;
        const auto time = IncidentTime::of(incident, now);
        times.push_back({time.begin, time.end});
    }
    std::ranges::sort(times, {}, &WatchedSpan::from);
    std::vector<WatchedSpan> united;
    for (const auto& time : times) {
        if (united.empty() || time.from > united.back().to) {
            united.push_back(time);
        } else {
            united.back().to = std::max(united.back().to, time.to);
        }
    }
    return united;
}

Instant::duration overlap(const WatchedSpan& a, const WatchedSpan& b) {
    return std::max(Instant::duration(0), std::min(a.to, b.to) - std::max(a.from, b.from));
}

}  // namespace

IncidentTime IncidentTime::of(const LoggedIncident& incident, Instant now) {
    IncidentTime time{.begin = std::min(incident.started.value_or(incident.firstSeen), now),
                      .isOngoing = !incident.endedSeen};
    // The end of an ongoing incident is a plan. One that was over before it was seen and has no
    // end in Apple's words has no length.
    const bool wasSeen = incident.endedSeen && *incident.endedSeen > incident.firstSeen;
    auto end = now;
    if (!time.isOngoing) end = incident.ended.value_or(wasSeen ? *incident.endedSeen : time.begin);
    time.end = std::clamp(end, time.begin, std::max(time.begin, now));
    return time;
}

std::vector<ServiceDay> serviceDays(const std::vector<LoggedIncident>& incidents,
                                    const std::vector<WatchedSpan>& watch, const DayBounds& days,
                                    Instant now) {
    std::vector<ServiceDay> kinds;
    for (std::size_t i = 0; i + 1 < days.size(); ++i) {
        const auto [from, to] = std::pair(days[i], days[i + 1]);
        auto kind = std::ranges::any_of(
                        watch, [&](const auto& span) { return span.from < to && span.to >= from; })
                        ? ServiceDay::up
                        : ServiceDay::unknown;
        for (const auto& incident : incidents) {
            if (IncidentTime::of(incident, now).touches(from, to))
                kind = std::max(kind, dayOf(problemLevel(incident.kind)));
        }
        kinds.push_back(kind);
    }
    return kinds;
}

std::optional<double> upShare(const std::vector<LoggedIncident>& incidents,
                              const std::vector<WatchedSpan>& watch, const DayBounds& days,
                              Instant now) {
    if (days.size() < 2) return std::nullopt;
    const WatchedSpan shown{days.front(), days.back()};
    const auto down = downTimes(incidents, now);
    Instant::duration watched{}, lost{};
    for (const auto& span : watch) {
        const WatchedSpan part{std::max(span.from, shown.from), std::min(span.to, shown.to)};
        watched += overlap(span, shown);
        for (const auto& time : down) lost += overlap(part, time);
    }
    if (watched <= Instant::duration(0)) return std::nullopt;
    return 1 - static_cast<double>(lost.count()) / static_cast<double>(watched.count());
}

}  // namespace kit
