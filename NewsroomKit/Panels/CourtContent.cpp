#include "NewsroomKit/Panels/CourtContent.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <tuple>

#include <fmt/format.h>

namespace kit {
namespace {

// A list with more holes says nothing any more.
constexpr std::size_t kMostHoles = 8;

int entryNumber(const DocketEntry& entry) {
    const auto text = entry.number.value_or("");
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool isFiledLater(const CourtItem& left, const CourtItem& right) {
    const auto order = [](const CourtItem& item) {
        return std::tuple(item.entry.date.value_or(item.firstSeen), entryNumber(item.entry),
                          item.firstSeen);
    };
    return order(left) > order(right);
}

}  // namespace

CourtContent courtContent(std::vector<CourtItem> items, const CourtFilter& filter) {
    CourtContent content;
    for (auto& item : items) {
        const auto latest = std::max(item.entry.date.value_or(item.firstSeen), item.firstSeen);
        if (filter.since && latest < *filter.since) continue;
        if (!filter.includesRoutine && item.entry.weight == DocketWeight::routine) {
            ++content.routine;
        } else {
            content.items.push_back(std::move(item));
        }
    }
    std::ranges::stable_sort(content.items, isFiledLater);
    return content;
}

std::string missingNumbers(const std::vector<DocketEntry>& entries) {
    std::set<int> numbers;
    for (const auto& entry : entries) {
        if (const auto number = entryNumber(entry); number > 0) numbers.insert(number);
    }
    std::string text;
    std::size_t holes = 0;
    int last = numbers.empty() ? 0 : *numbers.begin();
    for (const auto number : numbers) {
        if (number > last + 1 && holes++ < kMostHoles) {
            if (!text.empty()) text += ", ";
            text += number == last + 2 ? fmt::format("{}", last + 1)
                                       : fmt::format("{}-{}", last + 1, number - 1);
        }
        last = number;
    }
    return holes > kMostHoles ? text + " and more" : text;
}

}  // namespace kit
