#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/PhraseTables.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

struct StockDecision {
    bool isStockNews = false;
    /// The exclusion or the phrase that decided; the movement expression shows as "shares".
    std::optional<RuleHit> why{};

    bool operator==(const StockDecision&) const = default;
};

/// Whether an item is about Apple's share price.
namespace StockNews {

bool isStockNews(std::string_view text);
bool isStockNews(const Story& story);  ///< by its title
StockDecision explain(std::string_view text);

/// The same for a text that is normalised already and whose phrases are known.
StockDecision explainNormalized(std::string_view normalizedText, const PhraseHits& hits);

}  // namespace StockNews

}  // namespace kit
