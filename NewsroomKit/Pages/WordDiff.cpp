#include "NewsroomKit/Pages/WordDiff.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

#include "NewsroomKit/Pages/PageNoise.h"
#include "NewsroomKit/Text/SequenceDiff.h"

namespace kit {
namespace {

constexpr std::size_t shortWord = 4;
constexpr std::size_t mostWordsBetween = 2;
/// With a smaller share of words left, old and new text are shown whole.
constexpr double leastShareLeft = 0.25;

constexpr std::string_view wordGaps = " \t\r\n";

/// Noise that spans words joins them.
std::vector<std::string_view> comparableWords(std::string_view text) {
    std::vector<std::string_view> words;
    const auto noise = pageNoise(text);
    auto next = noise.begin();
    for (std::size_t at = text.find_first_not_of(wordGaps); at != std::string_view::npos;
         at = text.find_first_not_of(wordGaps, at)) {
        auto end = std::min(text.find_first_of(wordGaps, at), text.size());
        while (next != noise.end() && next->end <= at) ++next;
        for (; next != noise.end() && next->begin < end; ++next) {
            if (next->end > end)
                end = std::min(text.find_first_of(wordGaps, next->end), text.size());
        }
        words.push_back(text.substr(at, end - at));
        at = end;
    }
    return words;
}

class WordNumbers {
public:
    std::vector<std::uint32_t> of(const std::vector<std::string_view>& words) {
        std::vector<std::uint32_t> numbers;
        numbers.reserve(words.size());
        for (const auto word : words) {
            const auto next = static_cast<std::uint32_t>(numbers_.size());
            numbers.push_back(numbers_.try_emplace(comparedText(word), next).first->second);
        }
        return numbers;
    }

private:
    std::unordered_map<std::string, std::uint32_t> numbers_;
};

bool areShort(const std::vector<std::string_view>& words, std::size_t begin, std::size_t end) {
    if (end - begin > mostWordsBetween) return false;
    return std::all_of(words.begin() + static_cast<std::ptrdiff_t>(begin),
                       words.begin() + static_cast<std::ptrdiff_t>(end),
                       [](std::string_view word) { return word.size() <= shortWord; });
}

void addChange(WordDiff& diff, const WordChange& change) {
    if (change.beforeBegin == change.beforeEnd && change.afterBegin == change.afterEnd) return;
    diff.words += change.beforeEnd - change.beforeBegin + change.afterEnd - change.afterBegin;
    auto* last = diff.changes.empty() ? nullptr : &diff.changes.back();
    if (last && areShort(diff.after, last->afterEnd, change.afterBegin)) {
        last->beforeEnd = change.beforeEnd;
        last->afterEnd = change.afterEnd;
    } else {
        diff.changes.push_back(change);
    }
}

}  // namespace

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    for (std::size_t at = text.find_first_not_of(wordGaps); at != std::string_view::npos;
         at = text.find_first_not_of(wordGaps, at)) {
        const auto end = std::min(text.find_first_of(wordGaps, at), text.size());
        words.push_back(text.substr(at, end - at));
        at = end;
    }
    return words;
}

WordDiff compareWords(std::string_view before, std::string_view after) {
    WordDiff diff;
    diff.before = comparableWords(before);
    diff.after = comparableWords(after);
    WordNumbers numbers;
    const auto common = commonElements(numbers.of(diff.before), numbers.of(diff.after));
    std::size_t i = 0;
    std::size_t j = 0;
    for (const auto& match : common) {
        addChange(diff, {i, match.before, j, match.after});
        i = match.before + 1;
        j = match.after + 1;
    }
    addChange(diff, {i, diff.before.size(), j, diff.after.size()});
    const auto most = static_cast<double>(std::max(diff.before.size(), diff.after.size()));
    diff.isRewritten = static_cast<double>(common.size()) < leastShareLeft * most;
    return diff;
}

}  // namespace kit
