#include "NewsroomKit/Panels/MovesContent.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string_view>
#include <unordered_map>

#include "NewsroomKit/Attribution/TellingOutlet.h"

namespace kit {

namespace {

using StoriesByID = std::unordered_map<std::string_view, const PanelStory*>;

/// "A" to "Z", then "AA" and so on.
std::string letterOf(std::size_t place) {
    std::string letter(1, static_cast<char>('A' + place % 26));
    return place < 26 ? letter : letterOf(place / 26 - 1) + letter;
}

/// The stories of the reason that tell the same news as its first one.
std::vector<const PanelStory*> bestCoverage(const MoveReason& reason, const StoriesByID& byID,
                                            std::span<const StoryCluster> clusters) {
    const auto& first = reason.stories.front();
    const auto cluster = std::ranges::find_if(clusters, [&](const StoryCluster& each) {
        return std::ranges::find(each.storyIDs, first) != each.storyIDs.end();
    });
    std::vector<const PanelStory*> stories;
    for (const auto& id : reason.stories) {
        const bool isOfIt =
            id == first || (cluster != clusters.end() &&
                            std::ranges::find(cluster->storyIDs, id) != cluster->storyIDs.end());
        if (isOfIt) stories.push_back(byID.at(id));
    }
    return stories;
}

MoveReasonRow reasonRow(const MoveReason& reason, const StoriesByID& byID,
                        std::span<const StoryCluster> clusters) {
    const auto best = bestCoverage(reason, byID, clusters);
    const auto* lead = *std::ranges::min_element(
        best, {}, [](const auto* each) { return each->story->publishedAt; });
    MoveReasonRow row{.reason = reason.reason,
                      .lead = StoryMention::of(*lead),
                      .sourcing = Sourcing::unlabeled,
                      .stories = {StoryMention::of(*lead)}};
    for (const auto* each : best) row.sourcing = std::min(row.sourcing, each->story->sourcing);
    std::set<std::string> outlets;
    for (const auto& id : reason.stories) {
        outlets.insert(tellingOutletKey(*byID.at(id)->story));
        if (id != lead->story->id) row.stories.push_back(StoryMention::of(*byID.at(id)));
    }
    row.outlets = outlets.size();
    return row;
}

}  // namespace

Instant movesFrom(QuoteRange range, Instant now) {
    using std::chrono::days;
    switch (range) {
        case QuoteRange::day: return now - days(1);
        case QuoteRange::week: return now - days(7);
        case QuoteRange::month: return now - days(31);
        case QuoteRange::year: break;
    }
    return now - days(366);
}

std::vector<PriceMove> recentMoves(const StockQuote& year, Instant from) {
    auto moves = priceMoves(year, TimeZone(exchangeZone(year.symbol)));
    std::erase_if(moves, [&](const PriceMove& move) { return move.closeOfDay < from; });
    return moves;
}

bool couldExplain(const Story& story, const CompanyTopic& topic, std::span<const PriceMove> moves) {
    return std::ranges::any_of(moves, [&](const auto& move) { return isOfMove(story, move); }) &&
           topic.matches(story.title);
}

std::vector<MoveRow> moveRows(const StockQuote& year, std::vector<PriceMove> moves,
                              std::span<const PanelStory> stories,
                              std::span<const StoryCluster> clusters) {
    StoriesByID byID;
    std::vector<Story> plain;
    for (const auto& story : stories) {
        byID.emplace(story.story->id, &story);
        plain.push_back(*story.story);
    }
    addReasons(moves, year, plain, clusters);
    std::vector<MoveRow> rows;
    for (auto& move : moves) {
        MoveRow row{.letter = letterOf(moves.size() - 1 - rows.size())};
        if (move.usual > 0) row.timesUsual = std::abs(move.change) / move.usual;
        for (const auto& reason : move.reasons) {
            row.reasons.push_back(reasonRow(reason, byID, clusters));
        }
        row.stories = static_cast<std::size_t>(
            std::ranges::count_if(plain, [&](const auto& each) { return isOfMove(each, move); }));
        row.move = std::move(move);
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace kit
