#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace kit {

inline constexpr char32_t replacementCharacter = U'\uFFFD';

constexpr bool isASCII(char byte) { return static_cast<std::uint8_t>(byte) < 0x80; }

/// The offset of the first byte from `at` on that is not ASCII, or the text's size.
inline std::size_t endOfASCII(std::string_view text, std::size_t at) {
    // Most news is ASCII: eight bytes at a time while that lasts.
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    for (std::uint64_t word = 0; at + sizeof word <= text.size(); at += sizeof word) {
        std::memcpy(&word, text.data() + at, sizeof word);
        if ((word & highBits) != 0) break;
    }
    while (at < text.size() && isASCII(text[at])) ++at;
    return at;
}

/// One code point read from UTF-8 and the number of bytes it took. Bytes that are not
/// UTF-8 (overlong forms, surrogates, values above U+10FFFF and cut-off sequences
/// included) read as U+FFFD and take the longest run that could have begun a character,
/// at least one byte, so that a loop over a text always ends.
struct DecodedCodePoint {
    char32_t value;
    std::size_t length;
    bool valid = true;
};

/// The code point that begins at byte `at`, which must be less than the text's size.
constexpr DecodedCodePoint decodeUTF8(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t index) { return static_cast<std::uint8_t>(text[index]); };
    const std::uint8_t lead = byte(at);
    if (lead < 0x80) return {lead, 1};
    if (lead < 0xC2 || lead > 0xF4) return {replacementCharacter, 1, false};

    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    // The second byte's range is narrower after these leads: overlong forms, surrogates
    // and values above U+10FFFF end there.
    std::uint8_t low = 0x80;
    std::uint8_t high = 0xBF;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;

    char32_t value = lead & (0x7FU >> length);
    for (std::size_t index = 1; index < length; ++index) {
        if (at + index >= text.size() || byte(at + index) < low || byte(at + index) > high) {
            return {replacementCharacter, index, false};
        }
        value = (value << 6) | (byte(at + index) & 0x3FU);
        low = 0x80;
        high = 0xBF;
    }
    return {value, length};
}

/// The code point that ends just before byte `end`, which must be more than zero.
constexpr DecodedCodePoint decodeUTF8Before(std::string_view text, std::size_t end) {
    for (std::size_t length = 1; length <= 4 && length <= end; ++length) {
        const auto byte = static_cast<std::uint8_t>(text[end - length]);
        if ((byte & 0xC0U) == 0x80) continue;
        const DecodedCodePoint decoded = decodeUTF8(text.substr(0, end), end - length);
        if (decoded.length == length) return decoded;
        break;
    }
    return {replacementCharacter, 1, false};
}

/// Appends `codePoint` as UTF-8; surrogates and values above U+10FFFF become U+FFFD.
constexpr void appendUTF8(char32_t codePoint, std::string& out) {
    if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
        codePoint = replacementCharacter;
    }
    const auto append = [&](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    const auto appendTail = [&](unsigned shift) { append(0x80U | ((codePoint >> shift) & 0x3FU)); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0U | (codePoint >> 6));
        appendTail(0);
    } else if (codePoint < 0x10000) {
        append(0xE0U | (codePoint >> 12));
        appendTail(6);
        appendTail(0);
    } else {
        append(0xF0U | (codePoint >> 18));
        appendTail(12);
        appendTail(6);
        appendTail(0);
    }
}

}  // namespace kit
