#include "NewsroomKit/Panels/PressContent.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "NewsroomKit/Panels/FilingsContent.h"

namespace kit {

namespace {

Instant publishedOrSeen(const PressRow& row) {
    return row.item.release.published.value_or(row.item.firstSeen);
}

}  // namespace

std::vector<PressRow> pressRows(std::vector<PressItem> items,
                                const std::vector<FollowedFiling>& filings,
                                const PressFilter& filter) {
    std::vector<PressRow> rows;
    for (auto& item : items) {
        const auto& release = item.release;
        if (filter.since &&
            std::max(release.published.value_or(item.firstSeen), item.firstSeen) < *filter.since)
            continue;
        auto company = release.company.value_or(release.symbol.value_or(""));
        if (!filter.company.empty() && company != filter.company) continue;
        const auto* const filing = filingOf(filings, release);
        rows.push_back({.item = std::move(item),
                        .company = std::move(company),
                        .filing = filing ? std::optional(filing->filing) : std::nullopt});
    }
    std::ranges::stable_sort(rows, std::ranges::greater(), publishedOrSeen);
    return rows;
}

}  // namespace kit
