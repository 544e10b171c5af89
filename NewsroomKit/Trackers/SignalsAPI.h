#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/BodyFetch.h"
#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"

namespace kit {

/// Public data about Apple's software and store: which builds Apple signs, which updates it
/// offers, which apps lead the charts. An answer is parsed as a whole or refused: the operations
/// throw RecordError, which names the place of the fault.
struct SignalsAPI {
    static constexpr std::size_t kByteLimit = 6'291'456;
    static constexpr std::string_view kCountry = "us";
    static constexpr int kChartEntries = 25;

    HTTPClient& http;

    static std::string signingAddress(std::string_view device);
    static std::string updatesAddress();
    static std::string chartAddress(AppStoreCharts::Kind kind, std::string_view country = kCountry,
                                    int entries = kChartEntries);

    boost::asio::awaitable<FetchedFile<SigningStatus>> signingStatus(std::string_view device) const;
    boost::asio::awaitable<FetchedFile<std::vector<UpdateOffer>>> updateOffers() const;
    boost::asio::awaitable<FetchedFile<std::vector<ChartEntry>>> chart(
        AppStoreCharts::Kind kind) const;
};

}  // namespace kit
