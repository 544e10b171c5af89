#include "NewsroomKit/Trackers/SignalsAPI.h"

#include <boost/url/encode.hpp>
#include <boost/url/rfc/pchars.hpp>

#include "NewsroomKit/Trackers/TrackerHosts.h"

namespace kit {

namespace {

std::string addressOf(TrackerHost service) { return "https://" + std::string(hostOf(service)); }

/// So that nothing in it becomes part of the address's own syntax; commas stay.
std::string pathPiece(std::string_view text) {
    return boost::urls::encode(text, boost::urls::pchars);
}

}  // namespace

std::string SignalsAPI::signingAddress(std::string_view device) {
    return addressOf(TrackerHost::signing) + "/v4/device/" + pathPiece(device) + "?type=ipsw";
}

std::string SignalsAPI::updatesAddress() { return addressOf(TrackerHost::updates) + "/v2/pmv"; }

std::string SignalsAPI::chartAddress(AppStoreCharts::Kind kind, std::string_view country,
                                     int entries) {
    return addressOf(TrackerHost::charts) + "/api/v2/" + pathPiece(country) + "/apps/" +
           std::string(rawValue(kind)) + "/" + std::to_string(entries) + "/apps.json";
}

boost::asio::awaitable<FetchedFile<SigningStatus>> SignalsAPI::signingStatus(
    std::string_view device) const {
    return fetchFile(http, signingAddress(device), kByteLimit, SigningStatus::parse);
}

boost::asio::awaitable<FetchedFile<std::vector<UpdateOffer>>> SignalsAPI::updateOffers() const {
    return fetchFile(http, updatesAddress(), kByteLimit, AppleUpdateCatalog::parse);
}

boost::asio::awaitable<FetchedFile<std::vector<ChartEntry>>> SignalsAPI::chart(
    AppStoreCharts::Kind kind) const {
    return fetchFile(http, chartAddress(kind), kByteLimit, AppStoreCharts::parse);
}

}  // namespace kit
