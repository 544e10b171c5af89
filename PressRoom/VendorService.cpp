#include "PressRoom/VendorService.h"

#include <boost/json.hpp>

#include "NewsroomKit/Addresses/WebAddress.h"

namespace pressroom {

namespace json = boost::json;

std::string rawQueryItem(const Request& request, std::string_view name) {
    const auto question = request.target.find('?');
    if (question == request.target.npos) return {};
    const std::string_view target = request.target;
    for (const auto& item : kit::WebAddress::queryItems(target.substr(question + 1))) {
        const auto equals = item.raw.find('=');
        if (item.name == name && equals != item.raw.npos) return item.raw.substr(equals + 1);
    }
    return {};
}

std::string queryItem(const Request& request, std::string_view name) {
    return kit::percentDecoded(rawQueryItem(request, name));
}

Response errorAnswer(int status, std::string_view code, std::string_view message) {
    const json::object body{
        {"code", code}, {"message", message}, {"data", json::object{{"status", status}}}};
    return {.status = status,
            .headers = {{"Content-Type", "application/json; charset=UTF-8"}},
            .body = json::serialize(body)};
}

}  // namespace pressroom
