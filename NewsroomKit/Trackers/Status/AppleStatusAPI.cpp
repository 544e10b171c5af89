#include "NewsroomKit/Trackers/Status/AppleStatusAPI.h"

namespace kit {

std::string AppleStatusAPI::address(StatusFeed audience) {
    std::string address(kPage);
    address += audience == StatusFeed::consumer ? "data/" : "data/developer/";
    return address += "system_status_en_US.js";
}

boost::asio::awaitable<FetchedFile<AppleServiceStatus::Services>> AppleStatusAPI::fetch(
    StatusFeed audience) const {
    return fetchFile(http, address(audience), kByteLimit, AppleServiceStatus::parse);
}

}  // namespace kit
