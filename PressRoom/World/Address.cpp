#include "PressRoom/World/Address.h"

namespace pressroom {
namespace {

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

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

std::string percentDecoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == '%' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 &&
                            hexDigit(text[i + 2]) >= 0;
        if (!escape) {
            result += text[i];
            continue;
        }
        result += static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]));
        i += 2;
    }
    return result;
}

std::string lookupKey(std::string_view host, std::string_view target) {
    const auto question = target.find('?');
    auto path = target.substr(0, question);
    while (path.ends_with('/')) path.remove_suffix(1);
    const auto query = question == std::string_view::npos ? "" : target.substr(question + 1);
    return std::string(host) + percentDecoded(path) + percentDecoded(withoutTracking(query));
}

std::string lookupKey(const Request& request) { return lookupKey(request.host, request.target); }

std::string lookupKey(std::string_view httpsAddress) {
    httpsAddress.remove_prefix(std::string_view("https://").size());
    const auto slash = httpsAddress.find('/');
    if (slash == std::string_view::npos) return lookupKey(httpsAddress, "");
    return lookupKey(httpsAddress.substr(0, slash), httpsAddress.substr(slash));
}

}  // namespace pressroom
