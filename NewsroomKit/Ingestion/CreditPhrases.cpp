#include "NewsroomKit/Ingestion/CreditPhrases.h"

#include <array>
#include <cstdint>
#include <optional>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

// Sorted by first letter, so that only a few are compared at each word.
constexpr std::array<std::string_view, 11> kPhrases{"according to",
                                                    "as reported by",
                                                    "credit to",
                                                    "first reported by",
                                                    "first spotted by",
                                                    "h/t",
                                                    "hat tip to",
                                                    "originally reported by",
                                                    "reported by",
                                                    "spotted by",
                                                    "via"};

/// The role of a byte, in either letter case, in finding phrases.
struct ByteClass {
    std::uint32_t seconds = 0;  ///< bit n: a phrase continues with a character whose low bits are n
    bool mayEndWord = false;    ///< a word may begin after it
    unsigned char firstPhrase = 0;  ///< range of kPhrases that begin with it
    unsigned char endPhrase = 0;
};

constexpr std::uint32_t secondBit(char c) {
    return std::uint32_t{1} << (static_cast<unsigned char>(c) & 31);
}

constexpr auto kByteClasses = [] {
    std::array<ByteClass, 256> classes{};
    for (std::size_t byte = 0; byte < classes.size(); ++byte) {
        const auto c = static_cast<char>(byte);
        ByteClass& entry = classes[byte];
        entry.mayEndWord = !isASCIIAlphanumeric(c);
        for (unsigned char i = 0; i < kPhrases.size(); ++i) {
            if (kPhrases[i][0] != lowercaseASCII(c)) continue;
            if (entry.endPhrase == 0) entry.firstPhrase = i;
            entry.endPhrase = static_cast<unsigned char>(i + 1);
            entry.seconds |= secondBit(kPhrases[i][1]);
        }
    }
    return classes;
}();

const ByteClass& classAt(std::string_view text, std::size_t at) {
    return kByteClasses[static_cast<unsigned char>(text[at])];
}

bool beginsWord(std::string_view text, std::size_t at) {
    if (at == 0) return true;
    const auto before = decodeUTF8Before(text, at).value;
    return !isLetter(before) && !isNumber(before);
}

/// The end of the credit phrase at `at`, as whole words; nothing when there is none.
std::optional<std::size_t> phraseEnd(std::string_view text, std::size_t at) {
    const ByteClass& first = classAt(text, at);
    for (auto i = first.firstPhrase; i < first.endPhrase; ++i) {
        const auto end = at + kPhrases[i].size();
        const bool same = equalsLowercase(text.substr(at, kPhrases[i].size()), kPhrases[i]);
        if (same && wordCharacterAt(text, end) == 0 && beginsWord(text, at)) return end;
    }
    return std::nullopt;
}

}  // namespace

std::size_t wordCharacterAt(std::string_view text, std::size_t at) {
    if (at >= text.size()) return 0;
    if (static_cast<signed char>(text[at]) >= 0) return isASCIIAlphanumeric(text[at]) ? 1 : 0;
    const auto decoded = decodeUTF8(text, at);
    return isLetter(decoded.value) || isNumber(decoded.value) ? decoded.length : 0;
}

// One check of a byte and its neighbours skips nearly every byte.
std::vector<CreditPhrase> findCreditPhrases(std::string_view text) {
    std::vector<CreditPhrase> found;
    bool mayBegin = true;
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        const ByteClass& byte = classAt(text, at);
        if (mayBegin && (byte.seconds & secondBit(text[at + 1])) != 0) {
            if (const auto end = phraseEnd(text, at)) {
                found.push_back({at, *end});
                at = *end - 1;
            }
        }
        mayBegin = classAt(text, at).mayEndWord;
    }
    return found;
}

}  // namespace kit
