#include "NewsroomKit/Trackers/AppleStatusAPI.h"

#include "NewsroomKit/Trackers/BodyFetch.h"

namespace newsroom {

std::string AppleStatusAPI::address(StatusAudience audience) {
    std::string address(kPage);
    address += audience == StatusAudience::consumer ? "data/" : "data/developer/";
    return address += "system_status_en_US.js";
}

boost::asio::awaitable<FetchResult<AppleServiceStatus::Services>> AppleStatusAPI::fetch(
    StatusAudience audience) const {
    const auto fetched = co_await fetchBody(http, address(audience), kByteLimit);
    if (!fetched.body) co_return fetched.body.error();
    co_return AppleServiceStatus::parse(fetched.body.value());
}

}  // namespace newsroom
