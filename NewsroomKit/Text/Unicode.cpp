#include "NewsroomKit/Text/Unicode.h"

#include <algorithm>

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

constexpr char lowercased(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

template <class Predicate>
std::string_view trim(std::string_view text, Predicate isTrimmed) {
    while (!text.empty()) {
        const DecodedCodePoint first = decodeUTF8(text, 0);
        if (!isTrimmed(first.value)) break;
        text.remove_prefix(first.length);
    }
    while (!text.empty()) {
        const DecodedCodePoint last = decodeUTF8Before(text, text.size());
        if (!isTrimmed(last.value)) break;
        text.remove_suffix(last.length);
    }
    return text;
}

/// Equal for exactly the texts that are canonical caseless matches of each other.
icu::UnicodeString caselessForm(std::string_view utf8) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2& nfd = *icu::Normalizer2::getNFDInstance(status);
    const auto text = icu::UnicodeString::fromUTF8(
        icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())));
    // Decompose before folding: U+0345 folds to a letter, and later marks would then be ordered
    // across it.
    return nfd.normalize(nfd.normalize(text, status).foldCase(), status);
}

}  // namespace

bool isLetter(char32_t codePoint) {
    return (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & U_GC_L_MASK) != 0;
}

bool isNumber(char32_t codePoint) {
    return (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & U_GC_N_MASK) != 0;
}

bool isHorizontalWhitespace(char32_t codePoint) {
    return codePoint == U'\t' || u_charType(static_cast<UChar32>(codePoint)) == U_SPACE_SEPARATOR;
}

bool isWhitespaceOrNewline(char32_t codePoint) {
    return (codePoint >= U'\n' && codePoint <= U'\r') || codePoint == 0x85 || codePoint == 0x2028 ||
           codePoint == 0x2029 || isHorizontalWhitespace(codePoint);
}

bool isValidUTF8(std::string_view text) {
    std::size_t at = endOfASCII(text, 0);
    while (at < text.size()) {
        const DecodedCodePoint decoded = decodeUTF8(text, at);
        if (!decoded.valid) return false;
        at = endOfASCII(text, at + decoded.length);
    }
    return true;
}

std::string validUTF8(std::string_view text) {
    std::string valid;
    valid.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const DecodedCodePoint decoded = decodeUTF8(text, at);
        if (decoded.valid) {
            valid.append(text, at, decoded.length);
        } else {
            appendUTF8(replacementCharacter, valid);
        }
        at += decoded.length;
    }
    return valid;
}

std::string_view trimWhitespaceAndNewlines(std::string_view text) {
    return trim(text, isWhitespaceOrNewline);
}

std::string_view trimHorizontalWhitespace(std::string_view text) {
    return trim(text, isHorizontalWhitespace);
}

std::string lowercasedASCII(std::string_view text) {
    std::string lowered(text);
    std::ranges::transform(lowered, lowered.begin(), lowercased);
    return lowered;
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
    if (std::ranges::all_of(left, isASCII) && std::ranges::all_of(right, isASCII)) {
        return std::ranges::equal(left, right, {}, lowercased, lowercased);
    }
    return caselessForm(left) == caselessForm(right);
}

std::optional<std::size_t> prefixLengthIgnoringCase(std::string_view text,
                                                    std::string_view prefix) {
    // Most texts already differ in the first letter.
    const bool plain = !text.empty() && !prefix.empty() && isASCII(text[0]) && isASCII(prefix[0]);
    if (plain && lowercaseASCII(text[0]) != lowercaseASCII(prefix[0])) return std::nullopt;
    const icu::UnicodeString wanted = caselessForm(prefix);
    std::int32_t matched = 0;
    std::size_t length = 0;
    while (matched < wanted.length() && length < text.size()) {
        const std::string_view character = firstCharacters(text.substr(length), 1);
        const icu::UnicodeString form = caselessForm(character);
        if (wanted.compare(matched, form.length(), form) != 0) return std::nullopt;
        matched += form.length();
        length += character.size();
    }
    if (matched != wanted.length()) return std::nullopt;
    return length;
}

void composeAccents(std::string& text) {
    if (endOfASCII(text, 0) == text.size()) return;
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status) || nfc->isNormalizedUTF8(text, status)) return;
    std::string composed;
    icu::StringByteSink<std::string> sink(&composed);
    nfc->normalizeUTF8(0, text, sink, nullptr, status);
    if (U_SUCCESS(status)) text = std::move(composed);
}

}  // namespace kit
