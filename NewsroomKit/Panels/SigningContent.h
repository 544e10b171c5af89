#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Trackers/Signing/SigningNews.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"

namespace kit {

/// What is held of one of the models whose signing the desk follows.
struct DeviceSigning {
    std::string device{};  ///< the identifier of the model
    CachedValue<SigningStatus> signing{};
};

/// The builds that Apple signs now, model by model. All models together are as old as the oldest
/// answer, and have failed only when none of them could be asked.
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

/// Builds that Apple began or stopped to sign, the last seen first. A build counts once, for
/// however many models it changed.
struct RecordsContent {
    PanelCondition condition{};  ///< as that of SigningContent
    std::vector<SigningNews> rows{};
};

/// `changes`: the last seen first.
RecordsContent recordsContent(const std::vector<DeviceSigning>& devices,
                              const std::vector<SigningChange>& changes);

}  // namespace kit
