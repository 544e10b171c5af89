#include "NewsroomKit/Ingestion/OutletMention.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

using Certainty = OutletMention::Certainty;

constexpr std::size_t kMostWords = 6;
constexpr std::size_t kLongestWord = 40;

// What may stand between an outlet's name and its verb.
constexpr auto kHelpers = std::to_array<std::string_view>(
    {"also", "first", "has", "have", "is", "was", "now", "originally", "previously", "recently",
     "newsletter", "already", "earlier", "later", "video", "today"});

// Names that end so are newspapers', magazines' and broadcasters'.
constexpr auto kNewsWords = std::to_array<std::string_view>(
    {"News",     "Times",    "Post",      "Journal",   "Herald",   "Tribune",
     "Gazette",  "Globe",    "Chronicle", "Standard",  "Observer", "Shimbun",
     "Zeitung",  "Daily",    "Weekly",    "Magazine",  "Examiner", "Courier",
     "Dispatch", "Inquirer", "Sentinel",  "Newsletter"});

// Nouns before a name that say that it is an outlet's.
constexpr auto kOutletNouns = std::to_array<std::string_view>(
    {"newspaper", "newspapers", "broadcaster", "website", "magazine", "outlet", "publication",
     "newsletter", "site", "tabloid", "daily", "blog", "agency"});

// Short names that stand for another paper as often as for the one in the table.
constexpr auto kAmbiguousNames =
    std::to_array<std::string_view>({"The Times", "The Journal", "The Record", "The Sun"});

template <std::size_t Size>
bool isAmong(const std::array<std::string_view, Size>& words, std::string_view word) {
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view other) { return equalIgnoringCase(word, other); });
}

struct Word {
    std::string_view text{};  ///< without punctuation around it and without "'s"
    std::size_t begin = 0;
    std::size_t end = 0;
    bool closes = false;  ///< punctuation or a possessive ends the name here
    bool possessive = false;
};

bool isNameByte(char c) {
    return isASCIIAlphanumeric(c) || !isASCII(c) || c == '&' || c == '/' || c == '+' || c == '-';
}

/// The word at `at`, which is no space.
Word wordAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && end - at < kLongestWord) {
        const bool inner = (text[end] == '.' || text[end] == '\'') && end + 1 < text.size() &&
                           isASCIIAlphanumeric(text[end + 1]);
        if (!isNameByte(text[end]) && !inner) break;
        ++end;
    }
    Word word{.text = text.substr(at, end - at), .begin = at, .end = end};
    if (word.text.size() > 2 && word.text.ends_with("'s")) {
        word.possessive = true;
        word.text.remove_suffix(2);
    }
    // "U.S." and "Inc." keep their point where a word follows.
    const bool spaceFollows = end < text.size() && text[end] == ' ';
    word.possessive |= end < text.size() && text[end] == '\'';
    word.closes = word.possessive || !spaceFollows;
    return word;
}

bool isCapital(std::string_view word) {
    if (word.empty()) return false;
    const bool first = isASCIIDigit(word[0]) || (word[0] >= 'A' && word[0] <= 'Z');
    // "iMore", "eWeek"
    const bool second = word.size() > 1 && word[1] >= 'A' && word[1] <= 'Z';
    return first || second || !isASCII(word[0]);
}

bool isLink(std::string_view word) {
    return word == "of" || word == "the" || word == "and" || word == "to" || word == "in" ||
           word == "on" || word == "for" || word == "de" || word == "della" || word == "&";
}

bool isDomain(std::string_view word) {
    const auto point = word.rfind('.');
    if (point == std::string_view::npos || point < 2 || word.size() - point > 5) return false;
    return std::all_of(word.begin() + static_cast<std::ptrdiff_t>(point) + 1, word.end(),
                       isASCIILetter) &&
           word.size() - point > 2;
}

std::string joined(std::string_view text, const Word& first, const Word& last) {
    const auto end = static_cast<std::size_t>(last.text.data() + last.text.size() - text.data());
    return std::string(text.substr(first.begin, end - first.begin));
}

/// Words that make up a name, from `at` on.
std::vector<Word> wordsAfter(std::string_view text, std::size_t at) {
    std::vector<Word> words;
    while (words.size() < kMostWords && at < text.size()) {
        const Word word = wordAt(text, at);
        const bool fits = isCapital(word.text) || (!word.text.empty() && isLink(word.text));
        if (!fits) break;
        words.push_back(word);
        if (word.closes) break;
        at = word.end + 1;
    }
    return words;
}

/// Words before `end` up to the last that ends a clause.
std::vector<Word> wordsBefore(std::string_view text, std::size_t end) {
    std::vector<Word> words;
    while (words.size() < kMostWords && end > 0) {
        while (end > 0 && text[end - 1] == ' ') --end;
        std::size_t begin = end;
        while (begin > 0 && end - begin < kLongestWord &&
               (isNameByte(text[begin - 1]) || text[begin - 1] == '.' || text[begin - 1] == '\'')) {
            --begin;
        }
        if (begin == end) break;
        Word word = wordAt(text, begin);
        // Punctuation ends the clause, except the points of abbreviations and the apostrophe of a
        // possessive.
        const bool abbreviation = !words.empty() && word.text.size() <= 3;
        const bool owner = word.possessive && word.end + 1 == end;
        if (word.end < end && !abbreviation && !owner) break;
        word.end = end;
        words.insert(words.begin(), word);
        end = begin;
    }
    return words;
}

std::optional<OutletMention> known(std::string_view text, const Word& first, const Word& last) {
    const std::string name = joined(text, first, last);
    const bool named = isCapital(first.text) || first.text == "the";
    const Outlet* outlet = named ? outletNamed(name) : nullptr;
    if (!outlet || isAmong(kAmbiguousNames, name)) return std::nullopt;
    // "the verge of" is no outlet.
    if (!isCapital(last.text)) return std::nullopt;
    return OutletMention{.name = std::string(outlet->name),
                         .outlet = outlet,
                         .certainty = Certainty::known,
                         .begin = first.begin,
                         .end = last.end};
}

/// "Time Warner" and "Apple Park" are not "Time" and "Apple"; "Reuters Monday" is Reuters.
bool belongsToLongerName(std::span<const Word> words, std::size_t next) {
    constexpr auto days = std::to_array<std::string_view>(
        {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"});
    return next < words.size() && isCapital(words[next].text) && !isAmong(days, words[next].text);
}

/// The first known outlet among the words, the longest name first. A name counts only where it
/// begins the words or stands with a person: "Reuters' Ann Writer", "Ann Writer of Reuters".
std::optional<OutletMention> knownAmong(std::string_view text, std::span<const Word> words) {
    for (std::size_t first = 0; first < words.size(); ++first) {
        if (first > 0 && !isLink(words[first - 1].text)) continue;
        for (std::size_t end = words.size(); end > first; --end) {
            auto found = known(text, words[first], words[end - 1]);
            if (found && (words[end - 1].possessive || !belongsToLongerName(words, end))) {
                return found;
            }
        }
    }
    return std::nullopt;
}

Certainty certaintyOf(std::span<const Word> words, std::string_view before) {
    const auto lastSpace = before.find_last_of(' ');
    const auto noun = lastSpace == std::string_view::npos ? before : before.substr(lastSpace + 1);
    const bool newsWord = words.size() > 1 && isAmong(kNewsWords, words.back().text);
    const bool platformNews = words.front().text == "Apple" || words.front().text == "Google";
    const bool likely = isAmong(kOutletNouns, noun) || (newsWord && !platformNews) ||
                        (words.size() == 1 && isDomain(words.front().text));
    return likely ? Certainty::likely : Certainty::named;
}

std::optional<OutletMention> unknown(std::string_view text, std::span<const Word> words) {
    while (!words.empty() && isLink(words.front().text)) words = words.subspan(1);
    while (!words.empty() && isLink(words.back().text)) words = words.first(words.size() - 1);
    if (words.empty() || words.back().text.size() < 2) return std::nullopt;
    if (isAmong(kAmbiguousNames, joined(text, words.front(), words.back()))) return std::nullopt;
    const auto before = trimHorizontalWhitespace(text.substr(0, words.front().begin));
    const auto nearBefore = before.substr(before.size() - std::min<std::size_t>(before.size(), 24));
    return OutletMention{.name = joined(text, words.front(), words.back()),
                         .certainty = certaintyOf(words, nearBefore),
                         .begin = words.front().begin,
                         .end = words.back().end};
}

}  // namespace

std::optional<OutletMention> mentionAfter(std::string_view text, std::size_t at) {
    at = std::min(text.find_first_not_of(" :\"'([", at), text.size());
    auto words = wordsAfter(text, at);
    // "the website Orchard Gazette"
    for (int skipped = 0; words.empty() && skipped < 4 && at < text.size(); ++skipped) {
        const Word word = wordAt(text, at);
        if (word.text.empty() || word.closes) return std::nullopt;
        at = word.end + 1;
        if (isAmong(kOutletNouns, word.text)) words = wordsAfter(text, at);
    }
    if (words.empty()) return std::nullopt;
    if (auto found = knownAmong(text, words)) return found;
    const Word last = words.back();
    // "Danish website Orchard Gazette"
    if (!last.closes && isAmong(kOutletNouns, wordAt(text, last.end + 1).text)) {
        const auto named = wordsAfter(text, wordAt(text, last.end + 1).end + 1);
        if (!named.empty()) words = named;
    }
    // "Ann Writer at Reuters"
    if (!last.closes && last.end < text.size() && text.substr(last.end).starts_with(" at ")) {
        const auto employer = wordsAfter(text, last.end + 4);
        if (auto found = knownAmong(text, employer)) return found;
    }
    return unknown(text, words);
}

std::optional<OutletMention> mentionBefore(std::string_view text, std::size_t end) {
    auto words = wordsBefore(text, end);
    while (!words.empty() && isAmong(kHelpers, words.back().text)) words.pop_back();
    if (words.empty()) return std::nullopt;
    // The name reaches to the last word, or a person of the outlet does.
    for (std::size_t first = 0; first < words.size(); ++first) {
        const bool longer = first > 1 && isCapital(words[first - 1].text);
        auto found = known(text, words[first], words.back());
        if (found && (!longer || words[first].text == "The")) return found;
    }
    for (std::size_t last = words.size() - 1; last-- > 0;) {
        if (!words[last].possessive) continue;
        for (std::size_t first = 0; first <= last; ++first) {
            const bool person =
                std::all_of(words.begin() + static_cast<std::ptrdiff_t>(last) + 1, words.end(),
                            [](const Word& w) { return isCapital(w.text); });
            auto found = person ? known(text, words[first], words[last]) : std::nullopt;
            if (found) return found;
        }
    }
    std::size_t first = words.size();
    while (first > 0 && (isCapital(words[first - 1].text) || isLink(words[first - 1].text)) &&
           !words[first - 1].possessive) {
        --first;
    }
    return unknown(text, std::span(words).subspan(first));
}

bool isNamedIn(std::string_view text, const Outlet& outlet) {
    bool named = false;
    const auto look = [&](std::string_view name) {
        if (name.starts_with("The ")) name.remove_prefix(4);
        const auto at = text.find(name);
        if (at == std::string_view::npos) return;
        const auto end = at + name.size();
        named |= (at == 0 || !isASCIIAlphanumeric(text[at - 1])) &&
                 (end == text.size() || !isASCIIAlphanumeric(text[end]));
    };
    look(outlet.name);
    forEachPart(outlet.aliases, '|', look);
    return named;
}

}  // namespace kit
