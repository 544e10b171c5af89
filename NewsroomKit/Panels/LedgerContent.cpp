#include "NewsroomKit/Panels/LedgerContent.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "NewsroomKit/Attribution/TellingOutlet.h"

namespace kit {

LedgerRecord ledgerOf(const PanelNews& news) {
    const auto stories = storiesOf(news);
    auto ledger = makeLedger(stories, groupsOf(news), news.now);
    settleByLaterAnswers(ledger, stories, news.corrections, news.answers);
    std::unordered_map<std::string_view, const PanelStory*> byID;
    for (const auto& story : news.stories) byID.emplace(story.story->id, &story);
    LedgerRecord record{.outlets = std::move(ledger.outlets)};
    for (auto& claim : ledger.claims) {
        auto& row = record.claims.emplace_back();
        row.story = StoryMention::of(*byID.at(claim.story));
        if (claim.settledBy) row.settledBy = StoryMention::of(*byID.at(*claim.settledBy));
        row.claim = std::move(claim);
    }
    std::ranges::reverse(record.claims);
    return record;
}

std::vector<ClaimAnswer> LedgerRecord::answers() const {
    std::vector<ClaimAnswer> answers;
    for (const auto& row : claims) {
        const auto& claim = row.claim;
        if (claim.settledBy)
            answers.push_back({.claim = claim.story, .story = *claim.settledBy, .why = claim.why});
    }
    return answers;
}

LedgerContent ledgerContent(const LedgerRecord& ledger, const LedgerFilter& filter) {
    LedgerContent content;
    for (const auto& outlet : ledger.outlets)
        (outlet.claims < kLeastClaims ? content.lesser : content.outlets).push_back(outlet);
    const auto outlet = outletKey(filter.outlet);
    std::ranges::copy_if(ledger.claims, std::back_inserter(content.claims),
                         [&](const LedgerRow& row) {
                             if (filter.state && row.claim.state != *filter.state) return false;
                             return filter.outlet.empty() || outletKey(row.claim.outlet) == outlet;
                         });
    return content;
}

}  // namespace kit
