#include "NewsroomKit/Library/FileNames.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

constexpr std::array<std::string_view, 6> kDeviceNames{"con", "prn",    "aux",
                                                       "nul", "conin$", "conout$"};

bool isInvisible(char32_t character) {
    return (character >= 0x200B && character <= 0x200F) || character == 0x2060 ||
           character == 0xFEFF || character == 0x061C;
}

/// "CON", "com1", and both with anything behind a dot.
bool isDeviceName(std::string_view name) {
    const auto stem = lowercasedASCII(name.substr(0, name.find('.')));
    const auto trimmed = trimWhitespaceAndNewlines(stem);
    if (std::ranges::find(kDeviceNames, trimmed) != kDeviceNames.end()) return true;
    return (trimmed.starts_with("com") || trimmed.starts_with("lpt")) &&
           characterCount(trimmed) == 4;
}

std::string_view withoutOuterDots(std::string_view name) {
    constexpr std::string_view outer = ". ";
    const auto begin = std::min(name.find_first_not_of(outer), name.size());
    name.remove_prefix(begin);
    return name.substr(0, name.find_last_not_of(outer) + 1);
}

/// At most `limit` bytes, cut between user-perceived characters.
std::string_view boundedStem(std::string_view name, std::size_t limit) {
    if (name.size() <= limit) return name;
    std::size_t end = 0;
    while (end < limit) {
        const auto letter = firstCharacters(name.substr(end, 4 * limit), 1);
        if (end + letter.size() > limit) break;
        end += letter.size();
    }
    return name.substr(0, end);
}

}  // namespace

std::string safeFileName(std::string_view text) {
    auto line = singleLine(text.substr(0, 16 * kLongestFileStem));
    composeAccents(line);
    std::string name;
    for (std::size_t at = 0; at < line.size();) {
        const auto [character, length, valid] = decodeUTF8(line, at);
        const bool isSeparator =
            character < 0x80 &&
            std::string_view("/\\:*?\"<>|").find(static_cast<char>(character)) !=
                std::string_view::npos;
        if (isSeparator) {
            name += '-';
        } else if (!isInvisible(character) && character != replacementCharacter) {
            name.append(line, at, length);
        }
        at += length;
    }
    name = withoutOuterDots(boundedStem(withoutOuterDots(name), kLongestFileStem));
    if (name.empty()) return "untitled";
    // A leading "-" reads as an option, and a leading "~" as a home.
    if (isDeviceName(name) || name.front() == '-' || name.front() == '~') name.insert(0, "_");
    return name;
}

std::string DistinctNames::take(const std::string& stem, std::string_view ending) {
    auto name = stem + std::string(ending);
    for (int number = 2; !taken_.insert(fold(name)).second; ++number)
        name = stem + ' ' + std::to_string(number) + std::string(ending);
    return name;
}

}  // namespace kit
