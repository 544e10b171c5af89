#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Unicode's character classes and boundaries for UTF-8 text. Nothing here depends on the
/// user's locale, every function can be called from any thread, and invalid UTF-8 is read
/// as U+FFFD wherever a code point is needed (see Utf8.h).
namespace kit {

bool isLetter(char32_t codePoint);                ///< general categories L*
bool isNumber(char32_t codePoint);                ///< general categories N*
bool isHorizontalWhitespace(char32_t codePoint);  ///< tab and category Zs
/// Horizontal white space and every line break: U+000A to U+000D, U+0085, U+2028, U+2029.
bool isWhitespaceOrNewline(char32_t codePoint);

/// The text with every invalid sequence replaced by U+FFFD.
std::string validUTF8(std::string_view text);
bool isValidUTF8(std::string_view text);

/// The text with letters and their accents joined (normalisation form C), in place.
void composeAccents(std::string& text);

std::string_view trimWhitespaceAndNewlines(std::string_view text);
std::string_view trimHorizontalWhitespace(std::string_view text);

/// Only A to Z change; for identifiers, hosts and element names.
std::string lowercasedASCII(std::string_view text);

/// Full case folding, canonically equivalent spellings equal: "STRASSE" is "straße",
/// and a precomposed "é" equals "e" with its combining accent, but "é" is not "e".
bool equalIgnoringCase(std::string_view left, std::string_view right);

/// How many bytes at the start of `text` equal `prefix` in the sense of
/// equalIgnoringCase; nothing when it does not begin so. A prefix never ends inside a
/// user-perceived character of `text`.
std::optional<std::size_t> prefixLengthIgnoringCase(std::string_view text, std::string_view prefix);

/// User-perceived characters: Unicode's extended grapheme clusters, so that a family
/// emoji, a flag, a letter with its accents and CR LF each count once.
std::size_t characterCount(std::string_view text);

/// The first `count` user-perceived characters, or the whole text when it is shorter.
std::string_view firstCharacters(std::string_view text, std::size_t count);

}  // namespace kit
