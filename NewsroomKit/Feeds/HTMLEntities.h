#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kit {

/// The character of one of HTML's names, without "&" and ";"; letter case counts.
std::optional<char32_t> namedCharacter(std::string_view name);

/// A character reference at the start of a text.
struct CharacterReference {
    char32_t character;
    std::size_t length;  ///< bytes from "&" to ";"
};

/// Reads "&eacute;", "&#233;" or "&#xE9;". Numbers 128 to 159 mean what Windows-1252 has
/// there, as browsers read them. Nothing when the text begins with no complete reference.
std::optional<CharacterReference> characterReference(std::string_view text);

/// The character meant by a control code of 128 to 159; any other is itself.
char32_t withoutWindowsControls(char32_t character);

/// Decodes all references once; other text stays.
std::string decodedEntities(std::string_view text);

}  // namespace kit
