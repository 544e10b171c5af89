#include "Tarnwick_Brell/Desk/MoveReader.h"

#include <deque>

#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

std::vector<kit::MoveRow> readMoves(LocalStore& store, const kit::StockQuote& year,
                                    kit::Instant from) {
    auto moves = kit::recentMoves(year, from);
    if (moves.empty()) return {};
    const kit::CompanyTopic topic(year);
    std::deque<kit::Story> all;
    std::vector<kit::PanelStory> stories;
    kit::StoryClusterer clusterer;
    store.stories().eachInWireOrder(moves.back().closeBefore, [&](const StoredStory& stored) {
        if (!kit::couldExplain(stored.story, topic, moves)) return true;
        const auto& story = all.emplace_back(stored.story);
        clusterer.add({&story, 1});
        stories.push_back(
            {.story = &story, .firstSeen = stored.firstSeen, .isRead = stored.readAt.has_value()});
        return true;
    });
    const auto corrections = store.corrections().overlay();
    clusterer.setOverrides({.joined = corrections->joined(), .apart = corrections->apart()});
    return kit::moveRows(year, std::move(moves), stories, clusterer.clusters());
}

}  // namespace app
