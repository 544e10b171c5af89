#include "NewsroomKit/Trackers/Status/AppleStatusAPI.h"

#include "NewsroomKit/HTTP/BodyFetch.h"

namespace kit {

std::string AppleStatusAPI::address(StatusFeed audience) {
    std::string address(kPage);
    address += audience == StatusFeed::consumer ? "data/" : "data/developer/";
    return address += "system_status_en_US.js";
}

boost::asio::awaitable<FetchResult<AppleServiceStatus::Services>> AppleStatusAPI::fetch(
    StatusFeed audience) const {
    const auto fetched = co_await fetchBody(http, address(audience), kByteLimit);
    if (!fetched.body) co_return fetched.body.error();
    co_return AppleServiceStatus::parse(fetched.body.value());
}

}  // namespace kit
