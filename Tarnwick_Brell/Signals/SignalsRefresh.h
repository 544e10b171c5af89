#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "Tarnwick_Brell/Signals/LastSignals.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/TrackedFetch.h"

namespace desk {

/// Fetches firmware signing, updates and charts and keeps what came (see TrackedFetch.h), with
/// what has changed in their histories.
///
/// The object must outlive its coroutines. They throw StoreError.
class SignalsRefresh {
public:
    template <class T>
    using Result = TrackedFetch::Result<T>;

    SignalsRefresh(LocalStore& store, newsroom::HTTPClient& http, TrackedFetch::Clock clock);

    /// Each ends with what there is to show; with an error when that is not from this answer.
    Result<newsroom::SigningStatus> signing(std::string_view device);
    Result<std::vector<newsroom::UpdateOffer>> updates();
    Result<std::vector<newsroom::ChartEntry>> chart(newsroom::AppStoreCharts::Kind kind);

private:
    LocalStore& store_;
    TrackedFetch fetch_;
};

}  // namespace desk
