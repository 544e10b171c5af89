#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// One build of a device's system, and whether Apple still lets it be installed.
struct SignedBuild {
    std::string version{};
    std::string build{};
    bool isSigned = false;
    std::optional<Instant> released{};

    bool operator==(const SignedBuild&) const = default;
};

/// Every build that a device ever had.
struct SigningStatus {
    /// The service's own file.
    struct Firmware {
        std::string version{};
        std::string buildid{};
        std::optional<std::string> releasedate{};
        bool isSigned = false;
    };
    struct Device {
        std::string name{};
        std::vector<Firmware> firmwares{};
    };

    std::string name{};  ///< of the device, as people know it
    std::vector<SignedBuild> builds{};

    /// Throws RecordError. A release date that does not read is none.
    static SigningStatus parse(std::string_view body);

    bool operator==(const SigningStatus&) const = default;
};

template <>
struct JSONFields<SignedBuild> {
    static constexpr auto fields = std::tuple{
        field("version", &SignedBuild::version),
        field("build", &SignedBuild::build),
        field("signed", &SignedBuild::isSigned),
        field("released", &SignedBuild::released),
    };
};

template <>
struct JSONFields<SigningStatus::Firmware> {
    static constexpr auto fields = std::tuple{
        field("version", &SigningStatus::Firmware::version),
        field("buildid", &SigningStatus::Firmware::buildid),
        field("releasedate", &SigningStatus::Firmware::releasedate),
        field("signed", &SigningStatus::Firmware::isSigned),
    };
};

template <>
struct JSONFields<SigningStatus::Device> {
    static constexpr auto fields = std::tuple{
        field("name", &SigningStatus::Device::name),
        field("firmwares", &SigningStatus::Device::firmwares),
    };
};

template <>
struct JSONFields<SigningStatus> {
    static constexpr auto fields = std::tuple{
        field("name", &SigningStatus::name),
        field("builds", &SigningStatus::builds),
    };
};

}  // namespace kit
