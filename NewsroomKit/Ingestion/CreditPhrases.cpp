#include "NewsroomKit/Ingestion/CreditPhrases.h"

#include <array>
#include <cstdint>
#include <iterator>
#include <optional>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

struct PhraseRow {
    std::string_view text;
    CreditRole role;
};

// Sorted by first letter, so that only a few are compared at each word. A phrase that begins with
// another one stands before it.
constexpr PhraseRow kPhrases[] = {
    {"according to", CreditRole::source},
    {"article for", CreditRole::source},
    {"article in", CreditRole::source},
    {"as reported by", CreditRole::origin},
    {"cites", CreditRole::source},
    {"citing", CreditRole::source},
    {"credit to", CreditRole::origin},
    {"first reported by", CreditRole::origin},
    {"first spotted by", CreditRole::origin},
    {"h/t", CreditRole::origin},
    {"hat tip to", CreditRole::origin},
    {"hat tip", CreditRole::origin},
    {"interview with", CreditRole::source},
    {"notes", CreditRole::statement},
    {"obtained by", CreditRole::source},
    {"originally reported by", CreditRole::origin},
    {"per", CreditRole::source},
    {"piece for", CreditRole::source},
    {"piece in", CreditRole::source},
    {"points out", CreditRole::statement},
    {"posted", CreditRole::post},
    {"report by", CreditRole::source},
    {"report for", CreditRole::source},
    {"report from", CreditRole::source},
    {"report in", CreditRole::source},
    {"reported by", CreditRole::origin},
    {"reported", CreditRole::report},
    {"reporting for", CreditRole::writing},
    {"reporting", CreditRole::report},
    {"reports from", CreditRole::source},
    {"reports via", CreditRole::source},
    {"reports", CreditRole::report},
    {"reveals", CreditRole::statement},
    {"reviewed by", CreditRole::source},
    {"says", CreditRole::statement},
    {"seen by", CreditRole::source},
    {"shared", CreditRole::post},
    {"source:", CreditRole::source},
    {"sources:", CreditRole::source},
    {"spotted by", CreditRole::origin},
    {"told", CreditRole::source},
    {"tweeted", CreditRole::post},
    {"tweets", CreditRole::post},
    {"via", CreditRole::via},
    {"viewed by", CreditRole::source},
    {"writes for", CreditRole::writing},
    {"writes in", CreditRole::writing},
    {"writes", CreditRole::statement},
    {"wrote", CreditRole::statement},
    {"writing at", CreditRole::writing},
    {"writing for", CreditRole::writing},
    {"writing in", CreditRole::writing},
};

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
        for (unsigned char i = 0; i < std::size(kPhrases); ++i) {
            if (kPhrases[i].text[0] != lowercaseASCII(c)) continue;
            if (entry.endPhrase == 0) entry.firstPhrase = i;
            entry.endPhrase = static_cast<unsigned char>(i + 1);
            entry.seconds |= secondBit(kPhrases[i].text[1]);
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

/// The credit phrase at `at`, as whole words; nothing when there is none.
std::optional<CreditPhrase> phraseAt(std::string_view text, std::size_t at) {
    const ByteClass& first = classAt(text, at);
    for (auto i = first.firstPhrase; i < first.endPhrase; ++i) {
        const auto& [words, role] = kPhrases[i];
        const auto end = at + words.size();
        const bool same = equalsLowercase(text.substr(at, words.size()), words);
        const bool whole = words.back() == ':' || wordCharacterAt(text, end) == 0;
        if (same && whole && beginsWord(text, at)) return CreditPhrase{at, end, role};
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
            if (const auto phrase = phraseAt(text, at)) {
                found.push_back(*phrase);
                at = phrase->end - 1;
            }
        }
        mayBegin = classAt(text, at).mayEndWord;
    }
    return found;
}

}  // namespace kit
