#include "Tarnwick_Brell/Models/Pages/RecordsContent.h"

#include <algorithm>
#include <utility>

namespace app {

RecordsContent recordsContent(HeldRecords held) {
    RecordsContent content{.held = std::move(held)};
    std::vector<kit::PressItem> items;
    for (const auto& seen : content.held.releases) {
        content.releases.push_back(seen.release);
        items.push_back({seen.release, seen.feed, seen.firstSeen});
    }
    content.filings = kit::filingRows(content.held.filings, {}, content.releases);
    content.insiders = kit::insidersContent(content.held.filings, {.includesRoutine = true}).rows;
    content.press = kit::pressRows(std::move(items), content.held.filings, {});
    return content;
}

std::optional<kit::FilingRecord> recordIn(const RecordsContent& content,
                                          const std::string& accession) {
    return kit::filingRecord(content.held.filings, accession, content.releases);
}

std::vector<std::string> namesIn(std::vector<std::string> names) {
    std::ranges::sort(names);
    const auto same = std::ranges::unique(names);
    names.erase(same.begin(), same.end());
    std::erase(names, std::string());
    return names;
}

}  // namespace app
