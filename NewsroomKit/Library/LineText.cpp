#include "NewsroomKit/Library/LineText.h"

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// Embeddings, overrides and isolates; the marks that only hint at a direction stay.
bool turnsDirection(char32_t character) {
    return (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069);
}

bool isControlCode(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character <= 0x9F);
}

bool isUnsafeInLink(char c) {
    return static_cast<unsigned char>(c) <= 0x20 || c == 0x7F ||
           std::string_view("\"'<>()[]{}\\^`|").find(c) != std::string_view::npos;
}

/// The character of a line by which it would be a heading, a quote, a rule or an item of a list.
std::size_t markOfBlock(std::string_view line) {
    constexpr auto none = std::string_view::npos;
    if (line.empty()) return none;
    if (std::string_view("-+#=").find(line.front()) != none) return 0;
    const auto digits = line.find_first_not_of("0123456789");
    if (digits == 0 || digits == none) return none;
    return line[digits] == '.' || line[digits] == ')' ? digits : none;
}

}  // namespace

std::string withoutControls(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto [character, length, valid] = decodeUTF8(text, at);
        if (character == '\r') {
            if (at + 1 == text.size() || text[at + 1] != '\n') out += '\n';
        } else if (character == '\n' || character == '\t' ||
                   (!isControlCode(character) && !turnsDirection(character))) {
            appendUTF8(character, out);
        }
        at += length;
    }
    return out;
}

std::string singleLine(std::string_view text) {
    const auto shown = withoutControls(text);
    std::string out;
    out.reserve(shown.size());
    bool gap = false;
    for (std::size_t at = 0; at < shown.size();) {
        const auto [character, length, valid] = decodeUTF8(shown, at);
        if (isWhitespaceOrNewline(character)) {
            gap = !out.empty();
        } else {
            if (gap) out += ' ';
            gap = false;
            out.append(shown, at, length);
        }
        at += length;
    }
    return out;
}

std::string safeLink(std::string_view link) {
    std::string out;
    out.reserve(link.size());
    for (const char c : validUTF8(trimWhitespaceAndNewlines(link))) {
        if (!isUnsafeInLink(c)) {
            out += c;
            continue;
        }
        out += '%';
        out += kHexDigits[static_cast<unsigned char>(c) / 16];
        out += kHexDigits[static_cast<unsigned char>(c) % 16];
    }
    return out;
}

bool isWebLink(std::string_view link) {
    const auto address = WebAddress::parse(trimWhitespaceAndNewlines(link));
    return address && address->isHTTP();
}

std::string escapedMarkdown(std::string_view text) {
    const auto line = singleLine(text);
    const auto mark = markOfBlock(line);
    std::string out;
    out.reserve(line.size() + 8);
    for (std::size_t at = 0; at < line.size(); ++at) {
        const bool isSpecial =
            std::string_view("\\`*_[]<>&~|$").find(line[at]) != std::string_view::npos;
        if (isSpecial || at == mark) out += '\\';
        out += line[at];
    }
    return out;
}

}  // namespace kit
