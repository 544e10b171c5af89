#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Markets/PriceMoves.h"
#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// A reason that was reported for a move of a price.
struct MoveReasonRow {
    MarketNews::Reason reason{};
    StoryMention lead{};                  ///< the first story of the best cluster
    Sourcing sourcing{};                  ///< the firmest of its stories
    std::vector<StoryMention> stories{};  ///< all, the lead first
    std::size_t outlets = 0;              ///< that gave the reason

    bool operator==(const MoveReasonRow&) const = default;
};

/// A move of a price as it is listed, and marked on the chart.
struct MoveRow {
    std::string letter{};  ///< "A" for the earliest row
    PriceMove move{};
    std::optional<double> timesUsual{};  ///< absent where prices do not move usually
    std::vector<MoveReasonRow> reasons{};
    std::size_t stories = 0;  ///< about the company in that time, with a reason or without

    bool operator==(const MoveRow&) const = default;
};

/// From when on the moves of a chart's range count.
Instant movesFrom(QuoteRange range, Instant now);

/// The moves of a quote over a year that count from `from` on, for which stories are wanted.
std::vector<PriceMove> recentMoves(const StockQuote& year, Instant from);

/// Whether a story could be a reason of one of the moves.
bool couldExplain(const Story& story, const CompanyTopic& topic, std::span<const PriceMove> moves);

/// The newest move first. `stories` are those that could explain a move, `clusters` are of them.
std::vector<MoveRow> moveRows(const StockQuote& year, std::vector<PriceMove> moves,
                              std::span<const PanelStory> stories,
                              std::span<const StoryCluster> clusters);

}  // namespace kit
