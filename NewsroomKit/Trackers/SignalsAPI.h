#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"

namespace kit {

/// What others publish about Apple's software and store: which builds are signed, which updates
/// are offered, which apps lead the charts. Every answer is taken whole or not at all; parsing
/// throws RecordError, which names the place of the fault.
struct SignalsAPI {
    static constexpr std::size_t kByteLimit = 6'291'456;
    static constexpr std::string_view kCountry = "us";
    static constexpr int kChartEntries = 25;

    HTTPClient& http;

    static std::string signingAddress(std::string_view device);
    static std::string updatesAddress();
    static std::string chartAddress(AppStoreCharts::Kind kind, std::string_view country = kCountry,
                                    int entries = kChartEntries);

    boost::asio::awaitable<FetchResult<SigningStatus>> signingStatus(std::string device) const;
    boost::asio::awaitable<FetchResult<std::vector<UpdateOffer>>> updateOffers() const;
    boost::asio::awaitable<FetchResult<std::vector<ChartEntry>>> chart(
        AppStoreCharts::Kind kind) const;
};

}  // namespace kit
