#include "NewsroomKit/Panels/LedgerRows.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "NewsroomKit/Attribution/LaterAnswers.h"

namespace kit {

std::vector<LedgerRow> ledgerRows(const Ledger& ledger, const PanelNews& news) {
    std::unordered_map<std::string_view, const PanelStory*> known;
    for (const auto& story : news.stories) known.emplace(story.story->id, &story);
    std::vector<LedgerRow> rows;
    for (const auto& claim : ledger.claims) {
        LedgerRow row{.claim = claim, .story = StoryMention::of(*known.at(claim.story))};
        if (claim.settledBy) row.settledBy = StoryMention::of(*known.at(*claim.settledBy));
        rows.push_back(std::move(row));
    }
    std::ranges::reverse(rows);
    return rows;
}

Ledger makeLedger(const PanelNews& news) {
    std::vector<const Story*> stories;
    for (const auto& story : news.stories) stories.push_back(story.story);
    std::vector<std::vector<std::string>> groups;
    for (const auto& cluster : news.clusters) groups.push_back(cluster.storyIDs);
    auto ledger = makeLedger(stories, groups, news.now);
    settleByLaterAnswers(ledger, stories);
    return ledger;
}

}  // namespace kit
