#include "NewsroomKit/Court/DocketAPI.h"

#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Court/DocketForms.h"
#include "NewsroomKit/Court/DocketParser.h"

namespace kit {

std::string DocketAPI::feedAddress(std::int64_t docket) {
    return fmt::format("{}/docket/{}/feed/", courtListenerSite, docket);
}

std::string DocketAPI::searchAddress() {
    return fmt::format(
        "{}/api/rest/v4/search/?type=r&q=party_name%3A%22Apple+Inc%22&order_by=dateFiled+desc",
        courtListenerSite);
}

DocketSheet DocketAPI::parse(std::string_view body) {
    auto parsed = parseDocket(body);
    if (!parsed) throw RecordError("", std::string(description(parsed.error())));
    return std::move(parsed).value();
}

boost::asio::awaitable<FetchedFile<DocketSheet>> DocketAPI::sheet(std::string address) const {
    return fetchFile(http, std::move(address), kByteLimit, parse);
}

boost::asio::awaitable<FetchedFile<DocketSheet>> DocketAPI::search(std::string token) const {
    HTTPClient::Request request{
        .url = searchAddress(), .authorization = "Token " + token, .byteLimit = kByteLimit};
    return fetchFile(http, std::move(request), parse);
}

}  // namespace kit
