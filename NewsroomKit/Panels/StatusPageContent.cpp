#include "NewsroomKit/Panels/StatusPageContent.h"

#include <algorithm>

#include "NewsroomKit/Text/Folding.h"

namespace kit {

namespace {

using Services = StatusContent::Services;
using Page = StatusPageContent;

struct StatusPageInput {
    const StatusHistory& history;
    const StatusFilter& filter;
    const DayBounds& days;
    Instant now;

    bool shows(const std::string& service) const {
        return fold(service).find(fold(filter.words)) != std::string::npos;
    }
    bool shows(StatusFeed audience) const { return filter.audience.value_or(audience) == audience; }
};

std::vector<Page::Incident> incidentsOf(const StatusPageInput& input, StatusFeed audience,
                                        const std::string* service) {
    std::vector<Page::Incident> found;
    for (const auto& logged : input.history.incidents) {
        if (logged.audience != audience || (service && logged.service != *service)) continue;
        const auto time = IncidentTime::of(logged, input.now);
        if (time.touches(input.days.front(), input.days.back()))
            found.push_back({logged, problemLevel(logged.kind), time});
    }
    return found;
}

void sortByBegin(std::vector<Page::Incident>& incidents) {
    std::ranges::stable_sort(incidents, std::ranges::greater{},
                             [](const auto& incident) { return incident.time.begin; });
}

Page::Service serviceOf(const StatusPageInput& input, StatusFeed audience,
                        const AppleServiceStatus::Service& service, bool isCurrent) {
    Page::Service row{.name = service.name,
                      .incidents = incidentsOf(input, audience, &service.name)};
    for (const auto& report : AppleServiceStatus::ongoingReports({service}))
        row.problem = problemLevel(report.incident.kind);
    std::vector<LoggedIncident> logged;
    for (const auto& incident : row.incidents) logged.push_back(incident.logged);
    const auto& watch = input.history.watch(audience);
    row.days = serviceDays(logged, watch, input.days, input.now);
    row.share = upShare(logged, watch, input.days, input.now);
    sortByBegin(row.incidents);
    // Of an old file nobody knows how today goes on.
    if (!isCurrent && row.days.back() == ServiceDay::up) row.days.back() = ServiceDay::unknown;
    return row;
}

bool comesFirst(const Page::Service& a, const Page::Service& b) {
    if (a.problem.has_value() != b.problem.has_value()) return a.problem.has_value();
    if (a.incidents.empty() != b.incidents.empty()) return b.incidents.empty();
    if (a.incidents.empty()) return false;
    return a.incidents.front().time.begin > b.incidents.front().time.begin;
}

std::size_t watchedDays(const std::vector<WatchedSpan>& watch, const DayBounds& days) {
    const auto kinds = serviceDays({}, watch, days, days.back());
    return static_cast<std::size_t>(std::ranges::count(kinds, ServiceDay::up));
}

Page::Table tableOf(const StatusPageInput& input, StatusFeed audience,
                    const CachedValue<Services>& file,
                    const std::optional<StatusContent::Tally>& tally) {
    Page::Table table{.audience = audience,
                      .tally = tally,
                      .error = file.error,
                      .watchedDays = watchedDays(input.history.watch(audience), input.days)};
    for (const auto& service : file.value.value_or(Services())) {
        if (input.shows(service.name))
            table.services.push_back(
                serviceOf(input, audience, service, tally && tally->isCurrent));
    }
    std::ranges::stable_sort(table.services, comesFirst);
    return table;
}

/// When the desk first saw the incident that is under way.
std::optional<Instant> firstSeenOf(const StatusHistory& history,
                                   const AppleServiceStatus::Report& report) {
    for (const auto& logged : history.incidents) {
        if (!logged.endedSeen && logged.report == report.id()) return logged.firstSeen;
    }
    return std::nullopt;
}

void addOngoing(Page& page, const StatusPageInput& input, const CachedValue<Services>& file) {
    for (const auto& report : AppleServiceStatus::ongoingReports(file.value.value_or(Services()))) {
        if (!input.shows(report.service)) continue;
        page.problems.push_back({.incident = incidentOf(report, input.now),
                                 .firstSeen = firstSeenOf(input.history, report)});
    }
}

}  // namespace

StatusPageContent statusPageContent(const CachedValue<Services>& consumer,
                                    const CachedValue<Services>& developer,
                                    const StatusHistory& history, const StatusFilter& filter,
                                    const DayBounds& days, Instant now) {
    const StatusPageInput input{history, filter, days, now};
    const auto status = statusContent(consumer, developer, now);
    StatusPageContent page{.condition = status.condition};
    const auto add = [&](StatusFeed audience, const auto& file, const auto& tally) {
        if (!input.shows(audience)) return;
        addOngoing(page, input, file);
        page.tables.push_back(tableOf(input, audience, file, tally));
        for (auto& incident : incidentsOf(input, audience, nullptr)) {
            if (input.shows(incident.logged.service)) page.log.push_back(std::move(incident));
        }
    };
    add(StatusFeed::consumer, consumer, status.consumer);
    add(StatusFeed::developer, developer, status.developer);
    sortByBegin(page.log);
    return page;
}

}  // namespace kit
