#include <algorithm>
#include <limits>
#include <memory>

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/utext.h>

#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

/// True for code points that never combine with one another: letters of common alphabets,
/// ideographs, general punctuation. Everything else (marks, joiners, emoji, Hangul, Indic letters,
/// a CR that may have its LF) is left to ICU.
constexpr bool standsAlone(char32_t c) {
    const auto within = [c](char32_t first, char32_t last) { return c >= first && c <= last; };
    if (c < 0x300) return c != U'\r';
    if (c < 0x2000) {
        return within(0x391, 0x3FF) || within(0x400, 0x482) || within(0x48A, 0x52F) ||
               within(0x5D0, 0x5EA) || within(0x621, 0x64A);
    }
    return within(0x2010, 0x2027) || within(0x2030, 0x205E) || within(0x20A0, 0x20BF) ||
           within(0x3001, 0x3029) || within(0x3041, 0x3096) || within(0x30A1, 0x30FA) ||
           within(0x4E00, 0x9FFF);
}

const icu::BreakIterator& prototype() {
    static const std::unique_ptr<const icu::BreakIterator> iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<const icu::BreakIterator>(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    }();
    return *iterator;
}

struct Walk {
    std::size_t characters;
    std::size_t bytes;
};

/// Steps over at most `limit` characters with ICU's own rules.
Walk walkByBoundaries(std::string_view text, std::size_t limit) {
    UErrorCode status = U_ZERO_ERROR;
    UText input = UTEXT_INITIALIZER;
    utext_openUTF8(&input, text.data(), static_cast<std::int64_t>(text.size()), &status);
    const std::unique_ptr<icu::BreakIterator> boundaries(prototype().clone());
    boundaries->setText(&input, status);
    Walk walk{.characters = 0, .bytes = 0};
    while (walk.characters < limit) {
        const std::int32_t boundary = boundaries->next();
        if (boundary == icu::BreakIterator::DONE) break;
        walk.bytes = static_cast<std::size_t>(boundary);
        ++walk.characters;
    }
    utext_close(&input);
    return walk;
}

/// Steps over at most `limit` code points that stand alone.
Walk walkByCodePoints(std::string_view text, std::size_t limit) {
    Walk walk{.characters = 0, .bytes = 0};
    while (walk.characters < limit && walk.bytes < text.size()) {
        const std::string_view rest = text.substr(walk.bytes, limit - walk.characters);
        if (const std::size_t ascii = std::min(endOfASCII(rest, 0), rest.find('\r')); ascii > 0) {
            walk.bytes += ascii;
            walk.characters += ascii;
            continue;
        }
        const DecodedCodePoint decoded = decodeUTF8(text, walk.bytes);
        if (!standsAlone(decoded.value)) break;
        walk.bytes += decoded.length;
        ++walk.characters;
    }
    return walk;
}

/// Steps over at most `limit` characters, simple ones without ICU.
Walk walk(std::string_view text, std::size_t limit) {
    Walk simple = walkByCodePoints(text, limit);
    if (simple.bytes == text.size()) return simple;
    if (simple.characters == limit && standsAlone(decodeUTF8(text, simple.bytes).value)) {
        return simple;
    }
    if (simple.characters > 0) {
        // What follows may belong to the last character, so go back by one.
        --simple.characters;
        simple.bytes -= decodeUTF8Before(text, simple.bytes).length;
    }
    const Walk rest = walkByBoundaries(text.substr(simple.bytes), limit - simple.characters);
    return {simple.characters + rest.characters, simple.bytes + rest.bytes};
}

}  // namespace

std::size_t characterCount(std::string_view text) {
    return walk(text, std::numeric_limits<std::size_t>::max()).characters;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    if (count == 0) return {};
    return text.substr(0, walk(text, count).bytes);
}

}  // namespace kit
