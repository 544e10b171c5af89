#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"

namespace kit {

/// What is held of one of the models whose signing the desk follows.
struct DeviceSigning {
    std::string device{};  ///< the identifier of the model
    FetchedValue<SigningStatus> signing{};
};

/// The condition of all models together: as old as the oldest answer, and failed only when none of
/// them could be asked.
PanelCondition signingCondition(const std::vector<DeviceSigning>& devices, bool hasRows);

/// The builds that Apple signs now, model by model.
struct SigningContent {
    struct Device {
        std::string name{};  ///< that people know, or else the identifier
        bool isKnown = false;
        std::vector<SignedBuild> builds{};  ///< the signed ones
        std::optional<Instant> fetchedAt{};
        std::optional<std::string> error{};
    };

    PanelCondition condition{};
    std::vector<Device> devices{};
};

SigningContent signingContent(const std::vector<DeviceSigning>& devices);

}  // namespace kit
