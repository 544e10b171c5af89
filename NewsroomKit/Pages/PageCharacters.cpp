#include "NewsroomKit/Pages/PageCharacters.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

/// Characters that no reader sees and that editing systems add and drop at will. Joiners stay:
/// Persian and emoji need them.
bool isInvisible(char32_t c) {
    constexpr char32_t softHyphen = 0xAD;
    constexpr char32_t zeroWidthSpace = 0x200B;
    constexpr char32_t wordJoiner = 0x2060;
    constexpr char32_t byteOrderMark = 0xFEFF;
    return c == softHyphen || c == zeroWidthSpace || c == wordJoiner || c == byteOrderMark;
}

bool isASCIISpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view withoutOuterLines(std::string_view code) {
    const auto first = code.find_first_not_of("\r\n");
    if (first == std::string_view::npos) return {};
    // The first line keeps its indent.
    const auto begin = code.substr(0, first).rfind('\n');
    code = code.substr(begin == std::string_view::npos ? first : begin + 1);
    return code.substr(0, code.find_last_not_of(" \t\r\n") + 1);
}

}  // namespace

void PageText::appendGap() {
    hasBreak_ = false;
    if (!separator_.empty()) {
        text_ += std::exchange(separator_, {});
    } else if (hasGap_ && !text_.empty()) {
        text_ += ' ';
    }
    hasGap_ = false;
}

void PageText::appendCharacter(std::string_view character) {
    if (hasGap_ || hasBreak_ || !separator_.empty()) appendGap();
    text_ += character;
}

void PageText::append(std::string_view text) {
    if (keepsLines_) return appendKeepingLines(text);
    for (std::size_t at = 0; at < text.size();) {
        if (isASCII(text[at])) {
            auto end = at;
            while (end < text.size() && isASCII(text[end]) && !isASCIISpace(text[end])) ++end;
            if (end > at) appendCharacter(text.substr(at, end - at));
            at = end;
            while (at < text.size() && isASCIISpace(text[at])) {
                hasGap_ = true;
                ++at;
            }
            continue;
        }
        const auto decoded = decodeUTF8(text, at);
        const auto character = text.substr(at, decoded.length);
        at += decoded.length;
        if (isWhitespaceOrNewline(decoded.value)) {
            hasGap_ = true;
        } else if (!isInvisible(decoded.value)) {
            appendCharacter(character);
        }
    }
}

void PageText::appendKeepingLines(std::string_view text) {
    if (hasGap_ || hasBreak_ || !separator_.empty()) appendGap();
    for (const char c : text) {
        if (c != '\r') text_ += c;
    }
}

void PageText::appendSeparator(std::string_view separator) {
    separator_ = separator;
    hasGap_ = false;
}

bool PageText::breakLine() {
    hasGap_ = true;
    return std::exchange(hasBreak_, true);
}

std::string PageText::from(std::size_t place) const {
    if (place >= text_.size()) return {};
    auto text = std::string_view(text_).substr(place);
    if (text.starts_with(" · ")) text.remove_prefix(std::string_view(" · ").size());
    return std::string(trimWhitespaceAndNewlines(text));
}

std::string PageText::take() {
    auto text = std::exchange(text_, {});
    separator_ = {};
    hasGap_ = hasBreak_ = false;
    text = keepsLines_ ? std::string(withoutOuterLines(text))
                       : std::string(trimWhitespaceAndNewlines(text));
    composeAccents(text);
    return text;
}

}  // namespace kit
