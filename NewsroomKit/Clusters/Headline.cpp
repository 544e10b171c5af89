#include "NewsroomKit/Clusters/Headline.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>

#include "NewsroomKit/Clusters/WordFrequencies.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

// Bare numbers say little because model numbers and counts recur. Full versions don't.
constexpr double kNumberShare = 0.02;
// "second developer beta of …": how far before the stage its ordinal may stand.
constexpr std::size_t kOrdinalReach = 4;

struct Token {
    std::string text;
    bool price = false;  ///< a currency sign touches it
};

/// A token that holds a number: "27.1", "m6", "18e", "20th".
struct Number {
    std::string_view prefix{};  ///< "m" of "m6"
    std::string_view value{};   ///< "6", and "18e" with its letter
    bool version = false;       ///< has a point
    bool year = false;
};

std::uint64_t keyOf(std::string_view text) { return std::hash<std::string_view>{}(text); }

bool isCurrency(char32_t c) { return c == U'$' || c == U'€' || c == U'£' || c == U'¥'; }

bool isApostrophe(char32_t c) { return c == U'\'' || c == U'\u2019' || c == U'\u2018'; }

/// Words of letters and digits. Points and commas stay between digits ("27.1", "1,299"),
/// apostrophes inside words go, with the "s" of a possessive. What stands in square brackets
/// is the outlet's label ("[Updated]") or a platform's remark, not the news.
std::vector<Token> tokensOf(std::string_view folded) {
    std::vector<Token> tokens;
    Token token;
    bool price = false;
    const auto finish = [&] {
        if (!token.text.empty()) tokens.push_back(std::move(token));
        token = {};
    };
    for (std::size_t at = 0; at < folded.size();) {
        const auto c = decodeUTF8(folded, at);
        const std::string_view rest = folded.substr(at + c.length);
        const bool digitFollows = !rest.empty() && isASCIIDigit(rest.front());
        const bool inside = !token.text.empty();
        if (isLetter(c.value) || isNumber(c.value)) {
            if (!inside) token.price = price;
            appendUTF8(c.value, token.text);
        } else if (inside && isASCIIDigit(token.text.back()) && digitFollows && c.value == U'.') {
            token.text += '.';
        } else if (inside && isASCIIDigit(token.text.back()) && digitFollows && c.value == U',') {
            // Thousands: "1,299" is 1299.
        } else if (inside && isApostrophe(c.value)) {
            const bool possessive =
                rest.starts_with('s') && (rest.size() == 1 || !isASCIIAlphanumeric(rest[1]));
            if (possessive) at += 1;
            if (possessive) finish();
        } else {
            finish();
            const auto labelEnd = c.value == U'[' ? rest.find(']') : std::string_view::npos;
            if (labelEnd != std::string_view::npos) at += labelEnd + 1;
            if (c.value == U'%') tokens.push_back({.text = "percent"});
        }
        price = isCurrency(c.value);
        at += c.length;
    }
    finish();
    return tokens;
}

std::size_t countWhile(std::string_view text, bool (*fits)(char)) {
    const auto end = std::find_if_not(text.begin(), text.end(), fits);
    return static_cast<std::size_t>(end - text.begin());
}

std::optional<Number> numberIn(std::string_view token) {
    const std::size_t letters = countWhile(token, isASCIILetter);
    const std::string_view rest = token.substr(letters);
    const std::size_t digits = countWhile(rest, [](char c) { return isASCIIDigit(c) || c == '.'; });
    const std::string_view suffix = rest.substr(digits);
    const bool shaped = letters <= 2 && digits > 0 && suffix.size() <= 2 &&
                        std::all_of(suffix.begin(), suffix.end(), isASCIILetter);
    if (!shaped) return std::nullopt;
    const bool ordinal = suffix == "st" || suffix == "nd" || suffix == "rd" || suffix == "th";
    Number number{.prefix = token.substr(0, letters),
                  .value = ordinal ? rest.substr(0, digits) : rest};
    number.version = rest.find('.') != std::string_view::npos;
    number.year = token.size() == 4 && (token.starts_with("19") || token.starts_with("20")) &&
                  letters == 0 && digits == 4;
    return number;
}

/// "24C5052a": a build adds nothing to its version, and only some outlets name it.
bool isBuild(std::string_view token) {
    const std::size_t digits = countWhile(token, isASCIIDigit);
    if (digits == 0 || digits + 2 > token.size() || !isASCIILetter(token[digits])) return false;
    const std::string_view rest = token.substr(digits + 1);
    const std::size_t more = countWhile(rest, isASCIIDigit);
    return more >= 2 && rest.size() - more <= 1;
}

class HeadlineReader {
public:
    explicit HeadlineReader(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

    Headline read() {
        for (at_ = 0; at_ < tokens_.size(); ++at_) {
            const Token& token = tokens_[at_];
            if (const auto spelled = spelledNumber(token.text)) {
                addNumber({.value = std::to_string(*spelled)}, false);
            } else if (const auto number = numberIn(token.text)) {
                addNumber(*number, token.price);
            } else if (!isBuild(token.text)) {
                addWord(token.text);
            }
        }
        finish();
        return std::move(headline_);
    }

private:
    void addWord(std::string_view text) {
        if (isFunctionWord(text)) return;
        const std::string_view stem = wordStem(text);
        const CommonWord* common = commonWord(stem);
        if (!common) {
            headline_.words.push_back({.key = keyOf(stem)});
            return;
        }
        const auto sense = common->sense.empty() ? stem : wordStem(common->sense);
        const std::uint64_t key = keyOf(sense);
        headline_.words.push_back({.key = key, .usualShare = commonWord(sense)->share});
        if (common->role == CommonWord::Role::system) headline_.systems.push_back(key);
        if (common->role == CommonWord::Role::device) headline_.devices.push_back(key);
        if (common->role == CommonWord::Role::stage) addStage(key);
    }

    void addStage(std::uint64_t key) {
        headline_.stages.push_back(key);
        for (std::size_t back = 1; back <= std::min(at_, kOrdinalReach); ++back) {
            const auto ordinal = spelledOrdinal(tokens_[at_ - back].text);
            if (!ordinal) continue;
            const std::uint64_t value = keyOf(std::to_string(*ordinal));
            headline_.figures.push_back({key, value});
            headline_.numbers.push_back(value);
            headline_.words.push_back({.key = value, .usualShare = kNumberShare});
            return;
        }
    }

    void addNumber(const Number& number, bool price) {
        const std::uint64_t value = keyOf(number.value);
        const double share = number.version ? 0 : kNumberShare;
        headline_.words.push_back(
            {.key = keyOf(std::string(number.prefix).append(number.value)), .usualShare = share});
        const auto add = [&](std::string_view subject) {
            headline_.figures.push_back({keyOf(subject), value});
        };
        if (number.year) return add("(year)");
        if (price) return add("(price)");
        headline_.numbers.push_back(value);
        if (!number.prefix.empty()) return add(number.prefix);
        if (at_ > 0) addNeighbour(at_ - 1, value, 0);
        // A word after a number is a different subject from the same word before one: in "27.1 beta
        // 2" the 2 belongs to "beta".
        if (at_ + 1 < tokens_.size()) addNeighbour(at_ + 1, value, 1);
    }

    void addNeighbour(std::size_t place, std::uint64_t value, std::uint64_t side) {
        const std::string_view text = tokens_[place].text;
        if (isFunctionWord(text) || numberIn(text)) return;
        headline_.figures.push_back({keyOf(wordStem(text)) + side, value});
    }

    void finish() {
        auto& words = headline_.words;
        std::sort(words.begin(), words.end(), [](const auto& a, const auto& b) {
            return a.key != b.key ? a.key < b.key : a.usualShare < b.usualShare;
        });
        const auto sameKey = [](const auto& a, const auto& b) { return a.key == b.key; };
        words.erase(std::unique(words.begin(), words.end(), sameKey), words.end());
        const auto tidy = [](auto& list) {
            std::sort(list.begin(), list.end());
            list.erase(std::unique(list.begin(), list.end()), list.end());
        };
        tidy(headline_.figures);
        tidy(headline_.numbers);
        tidy(headline_.systems);
        tidy(headline_.devices);
        tidy(headline_.stages);
    }

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    Headline headline_;
};

/// True when neither list is empty and they share nothing.
bool disjoint(const std::vector<std::uint64_t>& left, const std::vector<std::uint64_t>& right) {
    if (left.empty() || right.empty()) return false;
    return std::none_of(left.begin(), left.end(), [&](std::uint64_t value) {
        return std::binary_search(right.begin(), right.end(), value);
    });
}

/// True when some subject has figures in both headlines but shares none of them.
bool figuresDisagree(const std::vector<Headline::Figure>& left,
                     const std::vector<Headline::Figure>& right) {
    for (const auto& figure : left) {
        bool sameSubject = false;
        for (const auto& other : right) sameSubject |= other.subject == figure.subject;
        if (!sameSubject) continue;
        const bool agrees = std::any_of(left.begin(), left.end(), [&](const auto& own) {
            return own.subject == figure.subject &&
                   std::binary_search(right.begin(), right.end(), own);
        });
        if (!agrees) return true;
    }
    return false;
}

}  // namespace

Headline readHeadline(std::string_view title) {
    return HeadlineReader(tokensOf(fold(title.substr(0, kLongestHeadline)))).read();
}

bool areIncompatible(const Headline& left, const Headline& right) {
    if (disjoint(left.systems, right.systems) || disjoint(left.devices, right.devices)) return true;
    // A beta of a version is different news from the version itself. Without a version, "beta" is
    // only wording.
    const bool versioned = !left.numbers.empty() && !right.numbers.empty();
    if (versioned && left.stages != right.stages) return true;
    return disjoint(left.numbers, right.numbers) || figuresDisagree(left.figures, right.figures);
}

}  // namespace kit
