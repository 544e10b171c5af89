#pragma once

#include <string_view>
#include <vector>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/KeptAnswers.h"

namespace desk {

/// What the library holds of the trackers, without the network.
class LastGood {
public:
    using Services = newsroom::AppleServiceStatus::Services;

    explicit LastGood(LocalStore& store) : answers_(store) {}

    TrackerReading<Services> status(newsroom::StatusAudience audience);
    TrackerReading<std::vector<newsroom::PlatformRelease>> releases();
    TrackerReading<std::vector<newsroom::AppleCalendarEvent>> events();
    TrackerReading<newsroom::StockQuote> quote(std::string_view symbol, newsroom::QuoteRange range);
    TrackerReading<std::vector<newsroom::BoardQuote>> board();

private:
    KeptAnswers answers_;
};

}  // namespace desk
