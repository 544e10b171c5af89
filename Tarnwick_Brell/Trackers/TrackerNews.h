#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Releases/NewBuilds.h"
#include "NewsroomKit/Trackers/Status/ServiceProblems.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// Announces what is new about Apple's services and systems, each item once, whatever the number
/// of restarts: the settings file remembers what has been announced. Each item is remembered just
/// before it is announced, so that a crash in between loses that one and repeats none.
class TrackerNews {
public:
    using Services = kit::AppleServiceStatus::Services;

    struct Callbacks {
        std::function<void(const kit::AppleServiceStatus::Report&)> onServiceProblem{};
        std::function<void(const std::string& service)> onServiceRestored{};
        std::function<void(const kit::NewBuild&)> onNewRelease{};
        /// The settings file can't be written: a sentence, once until it can be again.
        std::function<void(const std::string&)> onFailed{};
    };

    TrackerNews(Defaults& defaults, Callbacks callbacks);

    /// Absent: not loaded yet.
    void update(const std::optional<Services>& consumer, const std::optional<Services>& developer);
    void update(const std::vector<kit::PlatformRelease>& releases);

    /// Absent before the first update with a status.
    const std::optional<kit::ServiceProblems::Known>& knownProblems() const {
        return knownProblems_;
    }
    const kit::NewBuilds::Known& knownBuilds() const { return knownBuilds_; }

private:
    void remember(std::string_view key, const Defaults::Memory& memory);

    Defaults& defaults_;
    Callbacks callbacks_;
    std::optional<kit::ServiceProblems::Known> knownProblems_;
    kit::NewBuilds::Known knownBuilds_;
    bool isFailing_ = false;
};

}  // namespace app
