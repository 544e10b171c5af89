#include "NewsroomKit/Trackers/SignalsAPI.h"

#include <boost/url/encode.hpp>
#include <boost/url/rfc/pchars.hpp>

#include "NewsroomKit/Trackers/SignalHosts.h"
#include "NewsroomKit/HTTP/BodyFetch.h"

namespace kit {

namespace {

std::string addressOf(SignalService service) { return "https://" + std::string(hostOf(service)); }

/// So that nothing in it becomes part of the address's own syntax; commas stay.
std::string pathPiece(std::string_view text) {
    return boost::urls::encode(text, boost::urls::pchars);
}

template <class T>
boost::asio::awaitable<FetchResult<T>> fetched(HTTPClient& http, std::string address,
                                               T (*parse)(std::string_view)) {
    const auto answer = co_await fetchBody(http, std::move(address), SignalsAPI::kByteLimit);
    if (!answer.body) co_return answer.body.error();
    co_return parse(answer.body.value());
}

}  // namespace

std::string SignalsAPI::signingAddress(std::string_view device) {
    return addressOf(SignalService::signing) + "/v4/device/" + pathPiece(device) + "?type=ipsw";
}

std::string SignalsAPI::updatesAddress() { return addressOf(SignalService::updates) + "/v2/pmv"; }

std::string SignalsAPI::chartAddress(AppStoreCharts::Kind kind, std::string_view country,
                                     int entries) {
    return addressOf(SignalService::charts) + "/api/v2/" + pathPiece(country) + "/apps/" +
           std::string(rawValue(kind)) + "/" + std::to_string(entries) + "/apps.json";
}

boost::asio::awaitable<FetchResult<SigningStatus>> SignalsAPI::signingStatus(
    std::string device) const {
    return fetched(http, signingAddress(device), SigningStatus::parse);
}

boost::asio::awaitable<FetchResult<std::vector<UpdateOffer>>> SignalsAPI::updateOffers() const {
    return fetched(http, updatesAddress(), AppleUpdateCatalog::parse);
}

boost::asio::awaitable<FetchResult<std::vector<ChartEntry>>> SignalsAPI::chart(
    AppStoreCharts::Kind kind) const {
    return fetched(http, chartAddress(kind), AppStoreCharts::parse);
}

}  // namespace kit
