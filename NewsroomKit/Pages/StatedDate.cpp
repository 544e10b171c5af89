#include "NewsroomKit/Pages/StatedDate.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// The date follows within this many characters.
constexpr std::size_t farthestDate = 24;

constexpr std::array<std::string_view, 6> dateIntroductions{
    "last updated", "last modified", "last revised", "published date", "updated", "effective"};

constexpr std::array<std::string_view, 12> shortMonths{"jan", "feb", "mar", "apr", "may", "jun",
                                                       "jul", "aug", "sep", "oct", "nov", "dec"};

struct DateWord {
    std::size_t begin;
    std::size_t end;
    unsigned number = 0;  ///< of digits, or of a month by name
    bool isMonth = false;
};

/// The words of letters or digits; `text` is in lower case.
std::vector<DateWord> dateWords(std::string_view text, std::size_t begin) {
    std::vector<DateWord> words;
    while (begin < text.size() && words.size() < 8) {
        const bool isDigit = isASCIIDigit(text[begin]);
        if (!isDigit && !isASCIILetter(text[begin])) {
            ++begin;
            continue;
        }
        auto end = begin;
        while (end < text.size() &&
               (isDigit ? isASCIIDigit(text[end]) : isASCIILetter(text[end]))) {
            ++end;
        }
        DateWord word{begin, end};
        if (isDigit) {
            std::from_chars(text.data() + begin, text.data() + end, word.number);
        } else if (end - begin >= 3) {
            const auto month =
                std::find(shortMonths.begin(), shortMonths.end(), text.substr(begin, 3));
            word.isMonth = month != shortMonths.end();
            word.number = static_cast<unsigned>(month - shortMonths.begin()) + 1;
        }
        words.push_back(word);
        begin = end;
    }
    return words;
}

std::optional<Instant> dayOf(unsigned year, unsigned month, unsigned day) {
    if (year < 1990 || year > 2200) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(month), std::chrono::day(day)};
    if (!date.ok()) return std::nullopt;
    return std::chrono::sys_days(date);
}

std::optional<Instant> dayOf(const DateWord& a, const DateWord& b, const DateWord& c) {
    if (a.isMonth) return dayOf(c.number, a.number, b.number);
    if (b.isMonth) return dayOf(c.number, b.number, a.number);
    if (c.isMonth) return std::nullopt;
    return dayOf(a.number, b.number, c.number);
}

}  // namespace

std::optional<StatedDate> statedDate(std::string_view text) {
    const auto folded = lowercasedASCII(text);
    for (const auto introduction : dateIntroductions) {
        const auto at = folded.find(introduction);
        if (at == std::string::npos) continue;
        const auto after = at + introduction.size();
        const auto words = dateWords(folded, after);
        for (std::size_t i = 0; i + 2 < words.size(); ++i) {
            if (words[i].begin > after + farthestDate) break;
            const auto day = dayOf(words[i], words[i + 1], words[i + 2]);
            if (day) return StatedDate{*day, words[i].begin, words[i + 2].end};
        }
    }
    return std::nullopt;
}

std::optional<Instant> statedDay(const std::vector<PageBlock>& blocks) {
    std::optional<Instant> latest;
    for (const auto& block : blocks) {
        const auto date = statedDate(block.text);
        if (date && (!latest || date->day > *latest)) latest = date->day;
    }
    return latest;
}

bool differInDateOnly(std::string_view before, std::string_view after) {
    const auto old = statedDate(before);
    const auto fresh = statedDate(after);
    if (!old || !fresh || old->day == fresh->day) return false;
    return before.substr(0, old->begin) == after.substr(0, fresh->begin) &&
           before.substr(old->end) == after.substr(fresh->end);
}

}  // namespace kit
