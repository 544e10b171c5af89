#pragma once

#include <string_view>
#include <vector>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/KeptAnswers.h"

namespace app {

/// What the library holds of the trackers, without the network.
class LastGood {
public:
    using Services = kit::AppleServiceStatus::Services;

    explicit LastGood(LocalStore& store) : answers_(store) {}

    TrackerReading<Services> status(kit::StatusFeed audience);
    TrackerReading<std::vector<kit::PlatformRelease>> releases();
    TrackerReading<std::vector<kit::AppleCalendarEvent>> events();
    TrackerReading<kit::StockQuote> quote(std::string_view symbol, kit::QuoteRange range);
    TrackerReading<std::vector<kit::BoardQuote>> board();

private:
    KeptAnswers answers_;
};

}  // namespace app
