#include "Tarnwick_Brell/Trackers/TrackerNews.h"

#include <utility>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

using kit::NewBuilds;
using kit::ServiceProblems;

TrackerNews::TrackerNews(Defaults& defaults, Callbacks callbacks)
    : defaults_(defaults),
      callbacks_(std::move(callbacks)),
      knownProblems_(defaults.memory(Defaults::kKnownServiceProblems)),
      knownBuilds_(defaults.memory(Defaults::kKnownBuilds).value_or(NewBuilds::Known())) {}

void TrackerNews::remember(std::string_view key, const Defaults::Memory& memory) {
    try {
        defaults_.remember(key, memory);
        isFailing_ = false;
    } catch (const StoreError& error) {
        // The item is announced all the same; it may be announced again after a restart.
        if (!std::exchange(isFailing_, true)) callbacks_.onFailed(error.what());
    }
}

void TrackerNews::update(const std::optional<Services>& consumer,
                         const std::optional<Services>& developer) {
    auto found = ServiceProblems::detect(knownProblems_, consumer, developer);
    for (const auto& report : found.problems) {
        knownProblems_->emplace(report.id(), report.service);
        remember(Defaults::kKnownServiceProblems, *knownProblems_);
        callbacks_.onServiceProblem(report);
    }
    for (const auto& service : found.restored) {
        std::erase_if(*knownProblems_, [&](const auto& known) { return known.second == service; });
        remember(Defaults::kKnownServiceProblems, *knownProblems_);
        callbacks_.onServiceRestored(service);
    }
    // Incidents that ended at services which still have others, and the first update.
    if (found.known == knownProblems_) return;
    knownProblems_ = std::move(found.known);
    remember(Defaults::kKnownServiceProblems, *knownProblems_);
}

void TrackerNews::update(const std::vector<kit::PlatformRelease>& releases) {
    auto found = NewBuilds::detect(knownBuilds_, releases);
    for (const auto& build : found.announced) {
        knownBuilds_[build.key()] = build.release.build;
        remember(Defaults::kKnownBuilds, knownBuilds_);
        callbacks_.onNewRelease(build);
    }
    if (found.known == knownBuilds_) return;
    knownBuilds_ = std::move(found.known);
    remember(Defaults::kKnownBuilds, knownBuilds_);
}

}  // namespace app
