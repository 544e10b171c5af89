#include "NewsroomKit/Feeds/HTMLEntities.h"

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

constexpr std::size_t longestReference = 34;
constexpr unsigned lastNamedCharacter = 9830;  // &diams;

/// Windows-1252 from 128 on; 0 where it is undefined.
constexpr std::array<char16_t, 32> windowsCharacters{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

using NameTable = std::vector<std::pair<std::string_view, char32_t>>;

/// The XML library searches its table linearly; with a sorted table, a text full of references
/// costs a tenth.
NameTable sortedNames() {
    NameTable names;
    for (unsigned value = 1; value <= lastNamedCharacter; ++value) {
        if (const auto* row = htmlEntityValueLookup(value)) names.emplace_back(row->name, value);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<char32_t> numberedCharacter(std::string_view digits) {
    const bool hexadecimal = digits.starts_with('x') || digits.starts_with('X');
    if (hexadecimal) digits.remove_prefix(1);
    std::uint32_t value = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, hexadecimal ? 16 : 10);
    if (error == std::errc::invalid_argument || stop != end) return std::nullopt;
    if (error != std::errc() || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) {
        return replacementCharacter;
    }
    return withoutWindowsControls(value);
}

}  // namespace

std::optional<char32_t> namedCharacter(std::string_view name) {
    static const NameTable names = sortedNames();
    const auto row =
        std::lower_bound(names.begin(), names.end(), name,
                         [](const auto& entry, std::string_view key) { return entry.first < key; });
    if (row == names.end() || row->first != name) return std::nullopt;
    return row->second;
}

std::optional<CharacterReference> characterReference(std::string_view text) {
    if (!text.starts_with('&')) return std::nullopt;
    const auto end = text.substr(0, longestReference).find(';');
    if (end == std::string_view::npos) return std::nullopt;
    const auto name = text.substr(1, end - 1);
    const auto character =
        name.starts_with('#') ? numberedCharacter(name.substr(1)) : namedCharacter(name);
    if (!character) return std::nullopt;
    return CharacterReference{*character, end + 1};
}

char32_t withoutWindowsControls(char32_t character) {
    if (character < 0x80 || character > 0x9F) return character;
    const char16_t meant = windowsCharacters[character - 0x80];
    return meant == 0 ? character : meant;
}

std::string decodedEntities(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    while (!text.empty()) {
        const auto plain = std::min(text.find('&'), text.size());
        decoded.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (const auto reference = characterReference(text)) {
            appendUTF8(reference->character, decoded);
            text.remove_prefix(reference->length);
        } else if (!text.empty()) {
            decoded += '&';
            text.remove_prefix(1);
        }
    }
    return decoded;
}

}  // namespace kit
