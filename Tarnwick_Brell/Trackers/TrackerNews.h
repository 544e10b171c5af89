#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Releases/NewBuilds.h"
#include "NewsroomKit/Trackers/Status/ServiceProblems.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// Tells what is new about Apple's services and systems, each thing once, whatever the number
/// of restarts: what has been told is remembered in the settings file. Each thing is remembered
/// just before it is told, so that a crash in between loses that one and repeats none.
class TrackerNews {
public:
    using Services = kit::AppleServiceStatus::Services;

    struct Callbacks {
        std::function<void(const kit::AppleServiceStatus::Report&)> onServiceProblem{};
        std::function<void(const std::string& service)> onServiceRestored{};
        std::function<void(const kit::NewBuild&)> onNewRelease{};
        /// The memory can't be written: a sentence, once until it can be again.
        std::function<void(const std::string&)> onFailed{};
    };

    explicit TrackerNews(Defaults& defaults);

    Callbacks callbacks;

    /// Absent: not loaded yet.
    void look(const std::optional<Services>& consumer, const std::optional<Services>& developer);
    void look(const std::vector<kit::PlatformRelease>& releases);

    /// Absent before the first look that found a status.
    const std::optional<kit::ServiceProblems::Known>& knownProblems() const {
        return knownProblems_;
    }
    const kit::NewBuilds::Known& knownBuilds() const { return knownBuilds_; }

private:
    void remember(std::string_view key, const Defaults::Memory& memory);

    Defaults& defaults_;
    std::optional<kit::ServiceProblems::Known> knownProblems_;
    kit::NewBuilds::Known knownBuilds_;
    bool isFailing_ = false;
};

}  // namespace app
