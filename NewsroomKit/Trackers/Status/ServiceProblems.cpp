#include "NewsroomKit/Trackers/Status/ServiceProblems.h"

#include <set>

namespace kit {

namespace {

std::vector<AppleServiceStatus::Report> ongoing(
    const std::optional<AppleServiceStatus::Services>& consumer,
    const std::optional<AppleServiceStatus::Services>& developer) {
    std::vector<AppleServiceStatus::Report> reports;
    for (const auto* status : {&consumer, &developer}) {
        if (!*status) continue;
        for (auto& report : AppleServiceStatus::ongoingReports(**status)) {
            reports.push_back(std::move(report));
        }
    }
    return reports;
}

std::set<std::string> servicesIn(const ServiceProblems::Known& known) {
    std::set<std::string> services;
    for (const auto& [id, service] : known) services.insert(service);
    return services;
}

}  // namespace

ServiceProblems ServiceProblems::detect(
    std::optional<Known> known, const std::optional<AppleServiceStatus::Services>& consumer,
    const std::optional<AppleServiceStatus::Services>& developer) {
    // 1. Before Apple has answered, the known problems stay.
    if (!consumer) return {.known = std::move(known)};
    // 2. The current problems by id. Equal ids are one problem.
    ServiceProblems result{.known = Known()};
    for (auto& report : ongoing(consumer, developer)) {
        const auto id = report.id();
        const bool isFirst = result.known->emplace(id, report.service).second;
        if (known && isFirst && !known->contains(id)) result.problems.push_back(std::move(report));
    }
    // 3. A service works again when it has no problem at all.
    if (known) {
        const auto affected = servicesIn(*result.known);
        for (const auto& service : servicesIn(*known)) {
            if (!affected.contains(service)) result.restored.push_back(service);
        }
    }
    return result;
}

}  // namespace kit
