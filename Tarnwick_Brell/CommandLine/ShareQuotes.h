#pragma once

#include <vector>

#include "NewsroomKit/Panels/QuoteContent.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

namespace cli {

/// What the library holds of Apple's share, a quote for each range.
class ShareQuotes {
public:
    explicit ShareQuotes(Session& session);

    using Quote = kit::CachedValue<kit::StockQuote>;

    const Quote& over(kit::QuoteRange range) const;
    /// The quote that came last, of whatever range; null when none has come.
    const Quote* newest() const;

private:
    std::vector<Quote> quotes_;  ///< in the order of the ranges
};

}  // namespace cli
