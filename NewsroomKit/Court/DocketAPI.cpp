#include "NewsroomKit/Court/DocketAPI.h"

#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Court/DocketForms.h"
#include "NewsroomKit/Court/DocketParser.h"

namespace kit {

std::string DocketAPI::feedAddress(std::int64_t docket) {
    return fmt::format("{}/docket/{}/feed/", courtListenerSite, docket);
}

DocketSheet DocketAPI::parse(std::string_view body) {
    auto parsed = parseDocket(body);
    if (!parsed) throw RecordError("", std::string(description(parsed.error())));
    return std::move(parsed).value();
}

boost::asio::awaitable<FetchedFile<DocketSheet>> DocketAPI::sheet(std::string address) const {
    return fetchFile(http, std::move(address), kByteLimit, parse);
}

}  // namespace kit
