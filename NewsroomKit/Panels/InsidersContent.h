#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"

namespace kit {

/// What one person did within three days, over all forms, or means to do.
struct InsiderRow {
    std::string company{};
    std::string person{};
    std::optional<std::string> title{};
    std::string firstDay{};  ///< of the trades, or of the intended sale
    std::string lastDay{};
    std::vector<TradeSum> sums{};
    TradingPlan plan = TradingPlan::unknown;
    std::optional<std::string> planDay{};
    std::optional<double> shareOfHolding{};  ///< of what was held directly before, in per cent
    std::optional<double> heldAfter{};       ///< directly
    bool isDecision = false;
    bool isLate = false;
    bool isAmended = false;                 ///< a form of it corrects another
    std::optional<SaleNotice> notice{};     ///< that announced it; alone while nothing is done
    std::vector<std::string> accessions{};  ///< of the forms, the notice's last
    std::optional<std::string> link{};
};

struct InsiderFilter {
    bool includesRoutine = false;
    std::string company{};
    std::optional<std::string> since{};  ///< a day
};

struct InsidersContent {
    std::vector<InsiderRow> rows{};  ///< the last day first
    std::size_t routine = 0;         ///< rows that the filter leaves out as routine
};

InsidersContent insidersContent(const std::vector<FollowedFiling>& filings,
                                const InsiderFilter& filter);

}  // namespace kit
