#include "NewsroomKit/Editorial/MarketNews.h"

#include <utility>

#include "NewsroomKit/Editorial/PhraseAutomaton.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Editorial/StockNews.h"

namespace kit {

namespace {

using MarketNews::Reason;
using Where = RuleHit::Where;

/// The first table that matches gives the reason. `Reason::stock` has no table: it covers all other
/// news about the share price.
constexpr std::pair<PhraseTable, Reason> reasonsInOrder[] = {
    {PhraseTable::marketEarnings, Reason::earnings},
    {PhraseTable::marketAnalysts, Reason::analysts},
    {PhraseTable::marketLegal, Reason::legal},
    {PhraseTable::marketTrade, Reason::trade},
    {PhraseTable::marketSupply, Reason::supply},
    {PhraseTable::marketSales, Reason::sales},
    {PhraseTable::marketLeadership, Reason::leadership},
    {PhraseTable::marketDeal, Reason::deal},
};

}  // namespace

std::optional<Reason> MarketNews::reason(std::string_view text) { return explain(text).reason; }

MarketNews::Decision MarketNews::explain(std::string_view text) {
    const std::string normalized = PhraseMatcher::normalize(text);
    const PhraseHits hits = findPhrases(normalized);
    if (auto why = ruleHit(PhraseTable::marketExclusion, hits, Where::text)) {
        return {.reason = std::nullopt, .why = why};
    }
    for (const auto& [table, reason] : reasonsInOrder) {
        if (auto why = ruleHit(table, hits, Where::text)) return {.reason = reason, .why = why};
    }
    const StockDecision stock = StockNews::explainNormalized(normalized, hits);
    if (stock.isStockNews) return {.reason = Reason::stock, .why = stock.why};
    return {.reason = std::nullopt, .why = stock.why};
}

}  // namespace kit
