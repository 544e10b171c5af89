#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

#include <unicode/uchar.h>

#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace cli {

namespace {

bool isHidden(char32_t c) {
    switch (u_charType(static_cast<UChar32>(c))) {
        case U_CONTROL_CHAR:
        case U_SURROGATE:
        case U_LINE_SEPARATOR:
        case U_PARAGRAPH_SEPARATOR: return true;
        default: break;
    }
    // Embeddings, overrides and isolates.
    return (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

std::size_t columnsOf(char32_t c) {
    const auto type = u_charType(static_cast<UChar32>(c));
    if (type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK || type == U_FORMAT_CHAR) return 0;
    // The vowel and final consonant of a Korean syllable share the cell of its first consonant.
    const auto syllable =
        u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_HANGUL_SYLLABLE_TYPE);
    if (syllable == U_HST_VOWEL_JAMO || syllable == U_HST_TRAILING_JAMO) return 0;
    const auto width = u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

template <class Visit>
void eachCodePoint(std::string_view text, Visit visit) {
    std::size_t at = 0;
    while (at < text.size()) {
        const auto decoded = kit::decodeUTF8(text, at);
        if (!visit(decoded.value, at, at + decoded.length)) return;
        at += decoded.length;
    }
}

bool hasProperty(char32_t c, UProperty property) {
    return u_hasBinaryProperty(static_cast<UChar32>(c), property) != 0;
}

/// Columns of one user-perceived character. Terminals draw every emoji two columns wide: a family,
/// a flag of two letters, a sign followed by U+FE0F.
std::size_t columnsOfCharacter(std::string_view character) {
    std::size_t columns = 0;
    std::size_t flagLetters = 0;
    bool isEmoji = false;
    char32_t first = 0;
    eachCodePoint(character, [&](char32_t c, std::size_t begin, std::size_t) {
        if (begin == 0) first = c;
        flagLetters += hasProperty(c, UCHAR_REGIONAL_INDICATOR) ? 1 : 0;
        isEmoji = isEmoji || (c == 0xFE0F && hasProperty(first, UCHAR_EMOJI)) ||
                  (begin == 0 && hasProperty(c, UCHAR_EMOJI_PRESENTATION) &&
                   !hasProperty(c, UCHAR_REGIONAL_INDICATOR)) ||
                  (begin > 0 && hasProperty(c, UCHAR_EMOJI_MODIFIER));
        columns += columnsOf(c);
        return true;
    });
    return isEmoji || flagLetters == 2 ? 2 : columns;
}

/// Calls `visit` with the columns and the end of each user-perceived character until it returns
/// false.
template <class Visit>
void eachCharacter(std::string_view text, Visit visit) {
    std::size_t at = 0;
    while (at < text.size()) {
        // A character after ASCII may combine with the last ASCII letter.
        const auto plain = kit::endOfASCII(text, at);
        const auto last = plain == text.size() || plain == at ? plain : plain - 1;
        for (; at < last; ++at) {
            if (!visit(std::size_t{1}, at + 1)) return;
        }
        if (at == text.size()) return;
        const auto character = kit::firstCharacters(text.substr(at), 1);
        at += character.size();
        if (!visit(columnsOfCharacter(character), at)) return;
    }
}

}  // namespace

std::string printable(std::string_view text) {
    std::string out;
    eachCodePoint(text, [&](char32_t c, std::size_t begin, std::size_t end) {
        if (kit::isWhitespaceOrNewline(c) && c != 0xA0) {
            if (!out.empty() && out.back() != ' ') out += ' ';
        } else if (!isHidden(c)) {
            out += text.substr(begin, end - begin);
        }
        return true;
    });
    return out;
}

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    eachCharacter(text, [&](std::size_t width, std::size_t) {
        columns += width;
        return true;
    });
    return columns;
}

std::string cutTo(std::string_view text, std::size_t columns) {
    // No character has more columns than bytes.
    if (text.size() <= columns || columnsOf(text) <= columns || columns == 0) {
        return std::string(text);
    }
    std::size_t used = 0;
    std::size_t end = 0;
    eachCharacter(text, [&](std::size_t width, std::size_t after) {
        used += width;
        if (used + 1 > columns) return false;
        end = after;
        return true;
    });
    while (end > 0 && text[end - 1] == ' ') --end;
    return std::string(text.substr(0, end)) + "…";
}

std::string padTo(std::string_view text, std::size_t columns) {
    std::string out = cutTo(text, columns);
    const auto used = columnsOf(out);
    if (used < columns) out.append(columns - used, ' ');
    return out;
}

std::string wrapped(std::string_view text, std::size_t width, std::string_view indent) {
    std::string out(indent);
    std::size_t used = indent.size();
    while (!text.empty()) {
        const auto space = text.find(' ');
        const auto word = text.substr(0, space);
        if (used + 1 + columnsOf(word) > width && used > indent.size()) {
            out += "\n" + std::string(indent);
            used = indent.size();
        } else if (used > indent.size()) {
            out += ' ';
            ++used;
        }
        out += word;
        used += columnsOf(word);
        if (space == std::string_view::npos) break;
        text.remove_prefix(space + 1);
    }
    return out;
}

}  // namespace cli
