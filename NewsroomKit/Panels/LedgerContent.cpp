#include "NewsroomKit/Panels/LedgerContent.h"

#include <string_view>
#include <unordered_map>

namespace kit {

LedgerContent ledgerContent(const Ledger& ledger, std::span<const Story* const> stories,
                            const LedgerFilter& filter) {
    std::unordered_map<std::string_view, const Story*> byID;
    for (const auto* story : stories) byID.emplace(story->id, story);
    const auto titleOf = [&](const std::string& id) {
        const auto found = byID.find(id);
        return found == byID.end() ? std::string() : found->second->title;
    };
    LedgerContent content{.total = static_cast<std::int64_t>(ledger.claims.size())};
    for (const auto& outlet : ledger.outlets)
        (outlet.claims < kLeastClaims ? content.lesser : content.outlets).push_back(outlet);
    for (auto claim = ledger.claims.rbegin(); claim != ledger.claims.rend(); ++claim) {
        if (!filter.outlet.empty() && claim->outlet != filter.outlet) continue;
        if (filter.state && claim->state != *filter.state) continue;
        content.claims.push_back(
            {.claim = *claim,
             .title = titleOf(claim->story),
             .settledTitle = claim->settledBy ? titleOf(*claim->settledBy) : ""});
    }
    return content;
}

}  // namespace kit
