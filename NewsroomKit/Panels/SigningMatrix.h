#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/SigningContent.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// Devices that run versions of the same numbering, so that they share the columns of a matrix.
enum class DeviceFamily { mobile, mac, tv, watch, vision, other };

template <>
inline constexpr std::array<EnumRow<DeviceFamily>, 6> enumTable<DeviceFamily>{{
    {DeviceFamily::mobile, "mobile", "iOS, iPadOS"},
    {DeviceFamily::mac, "mac", "macOS"},
    {DeviceFamily::tv, "tv", "tvOS, audio"},
    {DeviceFamily::watch, "watch", "watchOS"},
    {DeviceFamily::vision, "vision", "visionOS"},
    {DeviceFamily::other, "other", "Others"},
}};

/// By the identifier's name: "iPhone18,3" is mobile.
DeviceFamily familyOf(std::string_view device);

enum class SigningMark {
    neverOffered,
    notKnown,  ///< the device's list has never been fetched
    notSigned,
    stopped,  ///< within the last 7 days
    isSigned
};

/// Which builds Apple signs for which devices: the devices of one family, down, and all of their
/// builds, across.
struct SigningMatrix {
    struct Column {
        std::string version{};
        std::string build{};
        std::optional<Instant> released{};  ///< a day, as Apple has it
        bool isSigned = false;              ///< for any of the devices

        bool operator==(const Column&) const = default;
    };
    struct Cell {
        SigningMark mark = SigningMark::neverOffered;
        std::optional<Instant> released{};     ///< a day, as Apple has it
        std::optional<Instant> signedAgain{};  ///< when the desk saw that it was signed
        std::optional<Instant> stopped{};      ///< when the desk saw that it no longer was

        bool operator==(const Cell&) const = default;
    };
    struct Device {
        std::string identifier{};
        std::string name{};   ///< that people know, or else the identifier
        std::string group{};  ///< "iPhone"
        std::vector<Cell> cells{};
        std::optional<Instant> fetchedAt{};
        std::optional<std::string> error{};  ///< why the row is no newer
    };

    PanelCondition condition{};
    std::vector<DeviceFamily> families{};  ///< of all devices
    DeviceFamily family = DeviceFamily::mobile;
    std::vector<Column> columns{};  ///< the newest version first
    std::vector<Device> devices{};  ///< group by group, as chosen within a group
    std::vector<SigningNews> changes{};
    std::size_t lateChanges = 0;  ///< of those the ones of the last 30 days
};

struct SigningFilter {
    std::optional<DeviceFamily> family{};  ///< the first that has a device unless it has one too
    std::string words{};                   ///< in devices' names or, when none has them, in builds
};

/// `changes`: the last seen first.
SigningMatrix signingMatrix(const std::vector<DeviceSigning>& devices,
                            const std::vector<SigningChange>& changes, const SigningFilter& filter,
                            Instant now);

}  // namespace kit
