#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Signals/Signal.h"
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

/// The changes of signing by build, each with its models in the order in which they are asked for.
/// `changes`: the last seen first.
std::vector<SigningNews> signingNewsRows(const std::vector<SigningChange>& changes);

/// A change of signing, or a record: a filing, a trade, an entry of a court, a press release.
struct RecordsRow {
    Instant seenAt{};
    std::optional<SigningNews> signing{};
    std::optional<Signal> record{};
};

/// What is on record, the last seen first. A build that Apple began or stopped to sign counts once,
/// for however many models it changed.
struct RecordsContent {
    PanelCondition condition{};  ///< as that of SigningContent
    std::vector<RecordsRow> rows{};
    bool hasRecords = false;  ///< beside changes of signing
};

/// `changes` and `records`: the last seen first.
RecordsContent recordsContent(const std::vector<DeviceSigning>& devices,
                              const std::vector<SigningChange>& changes,
                              const std::vector<LoggedSignal>& records = {});

}  // namespace kit
