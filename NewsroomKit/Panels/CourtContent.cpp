#include "NewsroomKit/Panels/CourtContent.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <optional>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Court/DocketSignals.h"

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

/// Finds the items that are the same entry in another feed.
class SameEntries {
public:
    /// The place of the same entry among those that were added; nothing for a new one. Entries
    /// without a number pair once.
    std::optional<std::size_t> placeOf(const CourtItem& item, const std::vector<CourtItem>& items) {
        if (const auto identity = entryIdentity(item.entry)) {
            const auto [found, isNew] = numbered_.try_emplace(*identity, items.size());
            return isNew ? std::nullopt : std::optional(found->second);
        }
        if (item.entry.number) return std::nullopt;
        const auto pair = std::ranges::find_if(alone_, [&](std::size_t place) {
            const auto& other = items[place].entry;
            return isOfCourtsFeed(item.entry) != isOfCourtsFeed(other) &&
                   areAlike(item.entry, other);
        });
        if (pair == alone_.end()) {
            alone_.push_back(items.size());
            return std::nullopt;
        }
        const auto place = *pair;
        alone_.erase(pair);
        return place;
    }

private:
    std::unordered_map<std::string, std::size_t> numbered_;
    std::vector<std::size_t> alone_;  ///< without a number and without a pair
};

/// An entry that CourtListener and the court's own feed both list becomes one, with the text that
/// says more.
std::vector<CourtItem> withoutDoubles(std::vector<CourtItem> items) {
    const bool hasBoth = std::ranges::any_of(
        items, [](const CourtItem& item) { return isOfCourtsFeed(item.entry); });
    if (!hasBoth) return items;
    std::vector<CourtItem> kept;
    SameEntries same;
    for (auto& item : items) {
        const auto place = same.placeOf(item, kept);
        if (!place) {
            kept.push_back(std::move(item));
            continue;
        }
        auto& other = kept[*place];
        if (isStub(other.entry) && !isStub(item.entry)) std::swap(other, item);
        other.firstSeen = std::min(other.firstSeen, item.firstSeen);
        if (other.note.empty()) other.note = item.note;
    }
    return kept;
}

}  // namespace

CourtContent courtContent(std::vector<CourtItem> items, const CourtFilter& filter) {
    CourtContent content;
    for (auto& item : withoutDoubles(std::move(items))) {
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

namespace {

void addToCase(CourtCaseRow& row, const CourtItem& item, std::optional<Instant> lookedAt) {
    const auto& entry = item.entry;
    const auto filed = entry.date.value_or(item.firstSeen);
    const bool matters = entry.weight == DocketWeight::matters;
    ++row.entries;
    row.matters += matters;
    row.unseen += matters && lookedAt && item.firstSeen > *lookedAt;
    if (row.name.empty()) row.name = entry.caseName.value_or("");
    if (row.court.empty()) row.court = entry.court.value_or("");
    if (row.number.empty()) row.number = entry.caseNumber.value_or("");
    if (row.latest && *row.latest >= filed) return;
    row.latest = filed;
    row.dayOnly = entry.date && entry.dayOnly;
}

}  // namespace

std::vector<CourtCaseRow> courtCaseRows(std::span<const FollowedDocket> followed,
                                        std::span<const CourtItem> items,
                                        std::span<const CourtCase> cases,
                                        std::optional<Instant> lookedAt) {
    std::vector<CourtCaseRow> rows;
    for (const auto& docket : followed) {
        CourtCaseRow row{.followed = docket};
        const auto found = std::ranges::find(cases, docket.docket, &CourtCase::docket);
        if (docket.docket != 0 && found != cases.end()) {
            row.found = *found;
            row.name = found->name;
            row.court = found->court;
            row.number = found->number;
        }
        for (const auto& item : items) {
            if (item.feed == docket.feed) addToCase(row, item, lookedAt);
        }
        if (docket.docket == 0) {  // Entries of many cases.
            row.name = docket.name;
            row.number.clear();
        }
        rows.push_back(std::move(row));
    }
    std::ranges::stable_sort(rows, std::ranges::greater(), &CourtCaseRow::latest);
    return rows;
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
