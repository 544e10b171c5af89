#include "NewsroomKit/Editorial/PhraseMatcher.h"

#include <cstring>

#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

bool isLetterOrNumber(char32_t codePoint) {
    if (codePoint < 0x80) {
        return (codePoint >= U'a' && codePoint <= U'z') ||
               (codePoint >= U'0' && codePoint <= U'9') || (codePoint >= U'A' && codePoint <= U'Z');
    }
    return isLetter(codePoint) || isNumber(codePoint);
}

bool isWordPhrase(std::string_view phrase) {
    for (std::size_t at = 0; at < phrase.size();) {
        const DecodedCodePoint decoded = decodeUTF8(phrase, at);
        const bool joinsWords =
            decoded.value == U'-' || decoded.value == U'.' || decoded.value == U'\'';
        if (!joinsWords && !isLetterOrNumber(decoded.value) &&
            !isWhitespaceOrNewline(decoded.value)) {
            return false;
        }
        at += decoded.length;
    }
    return true;
}

PhraseMatcher::Storage storageOf(const std::string& phrase) {
    if (phrase.empty() || !isWordPhrase(phrase)) return PhraseMatcher::Plain{phrase};
    return PhraseMatcher::Bounded{phrase};
}

/// The ordinary character for a typographic one, 0 when it is none.
constexpr char ordinaryPunctuation(char32_t codePoint) {
    switch (codePoint) {
        case U'\u2018':
        case U'\u2019': return '\'';
        case U'\u201C':
        case U'\u201D': return '"';
        case U'\u2013':
        case U'\u2014':
        case U'\u00A0': return ' ';
        default: return 0;
    }
}

/// Rewrites in place from byte `from` on: every replacement is shorter than what it replaces.
void makePunctuationOrdinary(std::string& text, std::size_t from) {
    std::size_t read = endOfASCII(text, from);
    std::size_t write = read;
    while (read < text.size()) {
        const DecodedCodePoint decoded = decodeUTF8(text, read);
        std::size_t kept = read;
        if (const char ordinary = ordinaryPunctuation(decoded.value)) {
            text[write++] = ordinary;
            kept += decoded.length;
        }
        read = endOfASCII(text, read + decoded.length);
        std::memmove(text.data() + write, text.data() + kept, read - kept);
        write += read - kept;
    }
    text.resize(write);
}

}  // namespace

PhraseMatcher::PhraseMatcher(std::string_view text)
    : phrase(trimHorizontalWhitespace(normalize(text))) {
    storage = storageOf(phrase);
}

std::string PhraseMatcher::normalize(std::string_view text) {
    std::string normalized;
    normalized.reserve(text.size());
    appendNormalized(text, normalized);
    return normalized;
}

void PhraseMatcher::appendNormalized(std::string_view text, std::string& out) {
    const std::size_t start = out.size();
    appendFolded(text, out);
    makePunctuationOrdinary(out, start);
}

std::size_t PhraseMatcher::find(std::string_view normalizedText, std::size_t from) const {
    if (phrase.empty()) return std::string_view::npos;
    std::size_t at = normalizedText.find(phrase, from);
    while (at != std::string_view::npos && isBounded() &&
           !standsAsWords(normalizedText, at, at + phrase.size())) {
        at = normalizedText.find(phrase, at + 1);
    }
    return at;
}

bool standsAsWords(std::string_view text, std::size_t start, std::size_t end) {
    if (start > 0 && isLetterOrNumber(decodeUTF8Before(text, start).value)) return false;
    return end == text.size() || !isLetterOrNumber(decodeUTF8(text, end).value);
}

}  // namespace kit
