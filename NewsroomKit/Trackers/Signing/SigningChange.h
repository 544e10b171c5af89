#pragma once

#include <string>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// A build that Apple began or stopped to sign for a device.
struct SigningChange {
    std::string device{};
    std::string deviceName{};
    std::string version{};
    std::string build{};
    bool isSigned = false;  ///< since then
    Instant seenAt{};

    bool operator==(const SigningChange&) const = default;
};

template <>
struct JSONFields<SigningChange> {
    static constexpr auto fields = std::tuple{
        field("device", &SigningChange::device),   field("deviceName", &SigningChange::deviceName),
        field("version", &SigningChange::version), field("build", &SigningChange::build),
        field("signed", &SigningChange::isSigned), field("seenAt", &SigningChange::seenAt),
    };
};

}  // namespace kit
