#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "Tarnwick_Brell/Signals/LastSignals.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/TrackedFetch.h"

namespace app {

/// Fetches firmware signing, updates and charts and keeps what came (see TrackedFetch.h), with
/// what has changed in their histories.
///
/// The object must outlive its coroutines. They throw StoreError.
class SignalsRefresh {
public:
    template <class T>
    using Result = TrackedFetch::Result<T>;

    SignalsRefresh(LocalStore& store, kit::HTTPClient& http, kit::Clock clock);

    /// Each ends with what there is to show; with an error when that is not from this answer.
    Result<kit::SigningStatus> signing(std::string_view device);
    Result<std::vector<kit::UpdateOffer>> updates();
    Result<std::vector<kit::ChartEntry>> chart(kit::AppStoreCharts::Kind kind);

private:
    LocalStore& store_;
    TrackedFetch fetch_;
};

}  // namespace app
