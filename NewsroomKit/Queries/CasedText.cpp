#include "NewsroomKit/Queries/CasedText.h"

#include <array>
#include <cstdint>

#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

/// The normalised forms of nearly all non-ASCII characters in Western news, accented letters and
/// typographic punctuation, ready to copy.
class CommonForms {
public:
    CommonForms() {
        for (char32_t i = 0; i < kLetters; ++i) forms_[i] = formOf(0x80 + i);
        for (char32_t i = 0; i < kMarks; ++i) forms_[kLetters + i] = formOf(0x2000 + i);
    }

    /// Appends the form of the first character of `text` and returns that character's length in
    /// bytes; 0 when it has no form here.
    std::size_t append(std::string_view text, std::string& out) const {
        const auto known = find(text);
        if (known.length > 0) out += forms_[known.place];
        return known.length;
    }

    bool has(std::string_view text) const { return find(text).length > 0; }

private:
    static constexpr std::size_t kLetters = 0x80;  ///< U+0080 to U+00FF
    static constexpr std::size_t kMarks = 0x40;    ///< U+2000 to U+203F

    static std::string formOf(char32_t codePoint) {
        std::string text;
        appendUTF8(codePoint, text);
        return PhraseMatcher::normalize(text);
    }

    struct Found {
        std::size_t place = 0;
        std::size_t length = 0;  ///< bytes of the character; 0 when it has no form here
    };

    static Found find(std::string_view text) {
        const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(text[at]); };
        if (text.size() >= 2 && (byte(0) == 0xC2 || byte(0) == 0xC3) && byte(1) >> 6 == 2) {
            return {byte(0) % 2U * 64 + byte(1) % 64U, 2};
        }
        if (text.size() >= 3 && byte(0) == 0xE2 && byte(1) == 0x80 && byte(2) >> 6 == 2) {
            return {kLetters + byte(2) % 64U, 3};
        }
        return {};
    }

    std::array<std::string, kLetters + kMarks> forms_{};
};

const CommonForms& commonForms() {
    static const CommonForms forms;
    return forms;
}

/// Length of `text` up to the next character that is ASCII or has a common form. These bytes are
/// normalised together, because in other scripts several characters may become one: half-width kana
/// with their voice marks, the letters of a Hangul syllable.
std::size_t lengthOfOthers(std::string_view text, const CommonForms& forms) {
    std::size_t at = 0;
    do {
        at += decodeUTF8(text, at).length;
    } while (at < text.size() && !isASCII(text[at]) && !forms.has(text.substr(at)));
    return at;
}

}  // namespace

void appendCased(std::string_view text, std::string& out) {
    const CommonForms& forms = commonForms();
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = endOfASCII(text, at);
        out.append(text, at, end - at);
        at = end;
        while (at < text.size() && !isASCII(text[at])) {
            std::size_t length = forms.append(text.substr(at), out);
            if (length == 0) {
                length = lengthOfOthers(text.substr(at), forms);
                PhraseMatcher::appendNormalized(text.substr(at, length), out);
            }
            at += length;
        }
    }
}

bool isAllASCII(std::string_view text) {
    // Without a branch per byte the compiler can vectorise the loop.
    std::uint8_t bits = 0;
    for (const char byte : text) {
        bits = static_cast<std::uint8_t>(bits | static_cast<std::uint8_t>(byte));
    }
    return bits < 0x80;
}

}  // namespace kit
