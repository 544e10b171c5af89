#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/LastGood.h"
#include "Tarnwick_Brell/Trackers/TrackedFetch.h"

namespace app {

/// Fetches trackers and keeps what came (see TrackedFetch.h); incidents and builds in their logs.
///
/// The object must outlive its coroutines. They throw StoreError.
class TrackerRefresh {
public:
    using Services = kit::AppleServiceStatus::Services;
    template <class T>
    using Result = TrackedFetch::Result<T>;

    TrackerRefresh(LocalStore& store, kit::HTTPClient& http, kit::Clock clock,
                   std::string_view serviceAddress);

    /// Each ends with what there is to show; with an error when that is not from this answer.
    Result<Services> status(kit::StatusFeed audience);
    Result<std::vector<kit::PlatformRelease>> releases();
    Result<std::vector<kit::AppleCalendarEvent>> events();
    Result<kit::StockQuote> quote(std::string_view symbol, kit::QuoteRange range);
    Result<std::vector<kit::BoardQuote>> board();

private:
    LocalStore& store_;
    kit::TrackerAPI api_;
    TrackedFetch fetch_;
};

}  // namespace app
