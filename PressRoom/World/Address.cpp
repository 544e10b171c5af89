#include "PressRoom/World/Address.h"

#include "NewsroomKit/Addresses/WebAddress.h"

namespace pressroom {
namespace {

bool isTracking(std::string_view item) {
    return item.starts_with("utm_") || item.starts_with("fbclid=");
}

std::string withoutTracking(std::string_view query) {
    std::string kept;
    while (!query.empty()) {
        const auto end = query.find('&');
        const auto item = query.substr(0, end);
        if (!item.empty() && !isTracking(item)) kept.append(kept.empty() ? "?" : "&").append(item);
        query = end == std::string_view::npos ? "" : query.substr(end + 1);
    }
    return kept;
}

}  // namespace

std::string lookupKey(std::string_view host, std::string_view target) {
    const auto question = target.find('?');
    auto path = target.substr(0, question);
    while (path.ends_with('/')) path.remove_suffix(1);
    const auto query = question == std::string_view::npos ? "" : target.substr(question + 1);
    return std::string(host) + kit::percentDecoded(path) +
           kit::percentDecoded(withoutTracking(query));
}

std::string lookupKey(const Request& request) { return lookupKey(request.host, request.target); }

std::string lookupKey(std::string_view httpsAddress) {
    httpsAddress.remove_prefix(std::string_view("https://").size());
    const auto slash = httpsAddress.find('/');
    if (slash == std::string_view::npos) return lookupKey(httpsAddress, "");
    return lookupKey(httpsAddress.substr(0, slash), httpsAddress.substr(slash));
}

}  // namespace pressroom
