#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kFamilies{{
    {"iPhone", "iOS"},
    {"iPod", "iOS"},
    {"iPad", "iPadOS"},
    {"Watch", "watchOS"},
    {"AppleTV", "tvOS"},
    {"RealityDevice", "visionOS"},
}};

constexpr std::string_view kSeparators = ", \t\r\n";

std::uint64_t numberIn(std::string_view text) {
    std::uint64_t number = 0;
    const auto end = text.data() + text.size();
    const auto [read, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && read == end ? number : 0;
}

std::size_t countFrom(std::string_view text, std::size_t begin, bool (*isWanted)(char)) {
    std::size_t count = 0;
    while (begin + count < text.size() && isWanted(text[begin + count])) ++count;
    return count;
}

/// How long the identifier at the front is; 0 when there is none.
std::size_t identifierLength(std::string_view text) {
    const auto isLetter = [](char c) { return isASCIILetter(c); };
    const auto isDigit = [](char c) { return isASCIIDigit(c); };
    const auto letters = countFrom(text, 0, isLetter);
    const auto major = countFrom(text, letters, isDigit);
    const auto comma = letters + major;
    if (letters == 0 || major == 0 || comma >= text.size() || text[comma] != ',') return 0;
    const auto minor = countFrom(text, comma + 1, isDigit);
    return minor == 0 ? 0 : comma + 1 + minor;
}

}  // namespace

ModelNumber modelNumber(std::string_view device) {
    const auto first = std::ranges::find_if(device, isASCIIDigit) - device.begin();
    const auto number = device.substr(static_cast<std::size_t>(first));
    const auto comma = number.find(',');
    if (comma == number.npos) return {.major = numberIn(number)};
    const auto rest = number.substr(comma + 1);
    return {.major = numberIn(number.substr(0, comma)),
            .minor = numberIn(rest.substr(0, rest.find(',')))};
}

std::optional<std::string_view> platformOfFamily(std::string_view device) {
    for (const auto& [family, platform] : kFamilies) {
        if (device.starts_with(family)) return platform;
    }
    return std::nullopt;
}

bool isDeviceIdentifier(std::string_view text) {
    constexpr std::size_t kLongest = 40;
    return !text.empty() && text.size() <= kLongest && identifierLength(text) == text.size();
}

std::optional<std::vector<std::string>> parseDeviceList(std::string_view text) {
    std::vector<std::string> devices;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(kSeparators), text.size()));
        if (text.empty()) return devices;
        const auto length = identifierLength(text);
        const auto device = text.substr(0, length);
        text.remove_prefix(length);
        const bool ends = text.empty() || kSeparators.find(text.front()) != kSeparators.npos;
        if (!isDeviceIdentifier(device) || !ends) return std::nullopt;
        if (std::ranges::find(devices, device) == devices.end()) devices.emplace_back(device);
    }
}

}  // namespace kit
