#pragma once

#include <vector>

#include "NewsroomKit/Panels/QuoteContent.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

/// The quote of Apple's share that came last, of whatever range; null when none has come.
inline const kit::CachedValue<kit::StockQuote>* newestShare(const TrackerStore& trackers) {
    std::vector<const kit::CachedValue<kit::StockQuote>*> quotes;
    for (const auto& row : kit::enumTable<kit::QuoteRange>)
        quotes.push_back(&trackers.quote(row.value));
    return kit::newestOf(quotes);
}

}  // namespace app
