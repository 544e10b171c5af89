#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/LastGood.h"
#include "Tarnwick_Brell/Trackers/TrackedFetch.h"

namespace desk {

/// Fetches trackers and keeps what came (see TrackedFetch.h); incidents and builds in their logs.
///
/// The object must outlive its coroutines. They throw StoreError.
class TrackerRefresh {
public:
    using Clock = TrackedFetch::Clock;
    using Services = newsroom::AppleServiceStatus::Services;
    template <class T>
    using Result = TrackedFetch::Result<T>;

    TrackerRefresh(LocalStore& store, newsroom::HTTPClient& http, Clock clock,
                   std::string_view serviceAddress);

    /// Each ends with what there is to show; with an error when that is not from this answer.
    Result<Services> status(newsroom::StatusAudience audience);
    Result<std::vector<newsroom::PlatformRelease>> releases();
    Result<std::vector<newsroom::AppleCalendarEvent>> events();
    Result<newsroom::StockQuote> quote(std::string_view symbol, newsroom::QuoteRange range);
    Result<std::vector<newsroom::BoardQuote>> board();

private:
    LocalStore& store_;
    newsroom::TrackerAPI api_;
    TrackedFetch fetch_;
};

}  // namespace desk
