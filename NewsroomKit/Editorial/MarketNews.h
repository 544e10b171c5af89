#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/PhraseTables.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// Why an item moved the market.
namespace MarketNews {

enum class Reason { earnings, analysts, legal, trade, supply, sales, leadership, deal, stock };

struct Decision {
    std::optional<Reason> reason;
    std::optional<RuleHit> why{};

    bool operator==(const Decision&) const = default;
};

std::optional<Reason> reason(std::string_view text);
Decision explain(std::string_view text);

}  // namespace MarketNews

template <>
inline constexpr std::array<EnumRow<MarketNews::Reason>, 9> enumTable<MarketNews::Reason>{{
    {MarketNews::Reason::earnings, "Earnings", "Earnings"},
    {MarketNews::Reason::analysts, "Analysts", "Analysts"},
    {MarketNews::Reason::legal, "Legal", "Legal"},
    {MarketNews::Reason::trade, "Trade", "Trade"},
    {MarketNews::Reason::supply, "Supply", "Supply"},
    {MarketNews::Reason::sales, "Sales", "Sales"},
    {MarketNews::Reason::leadership, "Leadership", "Leadership"},
    {MarketNews::Reason::deal, "Deal", "Deal"},
    {MarketNews::Reason::stock, "Stock", "Stock"},
}};

}  // namespace kit
