#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/NewBuilds.h"
#include "NewsroomKit/Trackers/ServiceProblems.h"
#include "Tarnwick_Brell/Storage/Defaults.h"

namespace desk {

/// Tells what is new about Apple's services and systems, each thing once, whatever the number
/// of restarts: what has been told is remembered in the settings file. Each thing is remembered
/// just before it is told, so that a crash in between loses that one and repeats none.
class TrackerNews {
public:
    using Services = newsroom::AppleServiceStatus::Services;

    struct Callbacks {
        std::function<void(const newsroom::AppleServiceStatus::Report&)> onServiceProblem{};
        std::function<void(const std::string& service)> onServiceRestored{};
        std::function<void(const newsroom::NewBuild&)> onNewRelease{};
        /// The memory can't be written: a sentence, once until it can be again.
        std::function<void(const std::string&)> onFailed{};
    };

    explicit TrackerNews(Defaults& defaults);

    Callbacks callbacks;

    /// Absent: not loaded yet.
    void look(const std::optional<Services>& consumer, const std::optional<Services>& developer);
    void look(const std::vector<newsroom::PlatformRelease>& releases);

    /// Absent before the first look that found a status.
    const std::optional<newsroom::ServiceProblems::Known>& knownProblems() const {
        return knownProblems_;
    }
    const newsroom::NewBuilds::Known& knownBuilds() const { return knownBuilds_; }

private:
    void remember(std::string_view key, const Defaults::Memory& memory);

    Defaults& defaults_;
    std::optional<newsroom::ServiceProblems::Known> knownProblems_;
    newsroom::NewBuilds::Known knownBuilds_;
    bool isFailing_ = false;
};

}  // namespace desk
