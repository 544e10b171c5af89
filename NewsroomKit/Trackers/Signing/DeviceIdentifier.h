#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Identifiers of device models: "iPhone17,3".
namespace kit {

struct ModelNumber {
    std::uint64_t major = 0;
    std::uint64_t minor = 0;

    auto operator<=>(const ModelNumber&) const = default;
};

/// The number behind the family's name. A part that is missing or no number counts as 0.
ModelNumber modelNumber(std::string_view device);

/// The platform that the family's name tells: "iPad13,16" runs "iPadOS". Nothing when it tells
/// none.
std::optional<std::string_view> platformOfFamily(std::string_view device);

/// "iPhone17,3": letters, a number, a comma, a number.
bool isDeviceIdentifier(std::string_view text);

/// Reads "iPhone17,3, iPad16,1": identifiers separated by commas or white space, each once.
/// Nothing when one of them is none.
std::optional<std::vector<std::string>> parseDeviceList(std::string_view text);

}  // namespace kit
