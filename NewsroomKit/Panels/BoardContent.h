#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Market/BoardQuote.h"
#include "NewsroomKit/Trackers/Market/PriceChange.h"

namespace kit {

/// A share of the board.
struct BoardRow {
    BoardQuote quote{};
    std::optional<PriceChange> change{};  ///< since the previous close
    std::string market{};                 ///< "Open"

    bool operator==(const BoardRow&) const = default;
};

/// A section of the board.
struct BoardGroup {
    std::string name{};
    std::vector<BoardRow> rows{};

    bool operator==(const BoardGroup&) const = default;
};

/// The board's order is by importance: a group stands where its first share does, with all of its
/// shares. Apple's own share, where it is known, heads a board that is not empty.
std::vector<BoardGroup> boardGroups(const std::vector<BoardQuote>& board,
                                    const StockQuote* share = nullptr);

}  // namespace kit
