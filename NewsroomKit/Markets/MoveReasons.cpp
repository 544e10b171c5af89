#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <unordered_map>

#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Markets/PriceMoves.h"

namespace kit {

namespace {

/// What stories are ordered by: the best cluster first.
struct CoverageRank {
    Sourcing sourcing = Sourcing::unlabeled;
    std::size_t outlets = 0;
    Instant first{};

    auto key() const { return std::tuple(sourcing, -static_cast<std::ptrdiff_t>(outlets), first); }
};

using CoverageRanks = std::unordered_map<std::string_view, CoverageRank>;

CoverageRank rankOf(std::span<const Story* const> cluster) {
    CoverageRank rank{.first = cluster.front()->publishedAt};
    std::set<std::string> outlets;
    for (const auto* story : cluster) {
        rank.sourcing = std::min(rank.sourcing, story->sourcing);
        rank.first = std::min(rank.first, story->publishedAt);
        outlets.insert(tellingOutletKey(*story));
    }
    rank.outlets = outlets.size();
    return rank;
}

CoverageRanks coverageRanks(std::span<const Story> stories,
                            std::span<const StoryCluster> clusters) {
    std::unordered_map<std::string_view, const Story*> byID;
    CoverageRanks ranks;
    for (const auto& story : stories) {
        byID.emplace(story.id, &story);
        const auto* alone = &story;
        ranks.insert_or_assign(story.id, rankOf({&alone, 1}));
    }
    for (const auto& cluster : clusters) {
        std::vector<const Story*> members;
        for (const auto& id : cluster.storyIDs) {
            const auto member = byID.find(id);
            if (member != byID.end()) members.push_back(member->second);
        }
        if (members.empty()) continue;
        const auto rank = rankOf(members);
        for (const auto* member : members) ranks.insert_or_assign(member->id, rank);
    }
    return ranks;
}

std::vector<MoveReason> reasonsOf(const PriceMove& move, std::span<const Story* const> reported,
                                  const CoverageRanks& ranks) {
    const auto key = [&](const std::string& id) {
        return std::tuple_cat(ranks.at(id).key(), std::tuple(std::string_view(id)));
    };
    std::map<MarketNews::Reason, std::vector<std::string>> byReason;
    for (const auto* story : reported) {
        const auto reason = MarketNews::reason(story->title);
        if (reason && isOfMove(*story, move)) byReason[*reason].push_back(story->id);
    }
    std::vector<MoveReason> reasons;
    for (auto& [reason, stories] : byReason) {
        std::ranges::sort(stories, {}, key);
        reasons.push_back({.reason = reason, .stories = std::move(stories)});
    }
    // Stable: of equal ones the table's order holds.
    std::ranges::stable_sort(reasons, {}, [&](const MoveReason& reason) {
        return ranks.at(reason.stories.front()).key();
    });
    return reasons;
}

}  // namespace

bool isOfMove(const Story& story, const PriceMove& move) {
    return story.publishedAt > move.closeBefore && story.publishedAt <= move.closeOfDay;
}

void addReasons(std::vector<PriceMove>& moves, const StockQuote& quote,
                std::span<const Story> stories, std::span<const StoryCluster> clusters) {
    const CompanyTopic topic(quote);
    std::vector<const Story*> reported;
    for (const auto& story : stories) {
        const bool isOfAny =
            std::ranges::any_of(moves, [&](const auto& move) { return isOfMove(story, move); });
        if (isOfAny && topic.matches(story.title)) reported.push_back(&story);
    }
    const auto ranks = coverageRanks(stories, clusters);
    for (auto& move : moves) move.reasons = reasonsOf(move, reported, ranks);
}

}  // namespace kit
