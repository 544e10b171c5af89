#include "NewsroomKit/Addresses/WebAddress.h"

#include <algorithm>
#include <charconv>

#include <boost/url/parse.hpp>
#include <boost/url/url.hpp>
#include <boost/url/url_view.hpp>

#include "NewsroomKit/Addresses/URLRepair.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

// Real hosts have at most 253 characters. The conversion of international letters to ASCII
// takes time that grows with the square of a label's length.
constexpr std::size_t kLongestHost = 1000;

/// Bytes between "://" and the path, without user information.
std::size_t writtenHostLength(std::string_view text) {
    const auto scheme = text.find("://");
    if (scheme == std::string_view::npos) return 0;
    text.remove_prefix(scheme + 3);
    const auto authority = text.substr(0, text.find_first_of("/?#"));
    const auto at = authority.rfind('@');
    return at == std::string_view::npos ? authority.size() : authority.size() - at - 1;
}

std::optional<unsigned> portNumber(std::string_view digits) {
    unsigned number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    return whole && number <= 65535 ? std::optional(number) : std::nullopt;
}

std::optional<WebAddress> fromParsed(const boost::urls::url_view& view) {
    WebAddress address;
    address.scheme = lowercasedASCII(view.scheme());
    address.host = lowercasedASCII(view.encoded_host());
    if (address.scheme.empty() || address.host.empty()) return std::nullopt;
    if (address.host.find('%') != std::string::npos) return std::nullopt;
    if (view.has_userinfo()) address.userInfo = std::string(view.encoded_userinfo());
    // The parser accepts any text after the colon: letters become part of the path, and a number
    // that is too large for a port is cut to sixteen bits.
    if (view.has_port() && !view.port().empty()) {
        address.port = portNumber(view.port());
        if (!address.port) return std::nullopt;
    }
    address.path = std::string(view.encoded_path());
    if (!address.path.empty() && !address.path.starts_with('/')) return std::nullopt;
    if (view.has_query()) address.query = std::string(view.encoded_query());
    if (view.has_fragment()) address.fragment = std::string(view.encoded_fragment());
    return address;
}

/// Nothing lies above the root: "/../a" leads to "/a".
void removeStepsAboveRoot(std::string& path) {
    std::size_t steps = 0;
    while (path.compare(steps, 4, "/../") == 0) steps += 3;
    path.erase(0, steps);
    if (path == "/..") path = "/";
}

}  // namespace

std::optional<WebAddress> WebAddress::parse(std::string_view text) {
    if (writtenHostLength(text) > kLongestHost) return std::nullopt;
    // The parser accepts some addresses that fromParsed refuses (a second "@"); their strict form
    // may still be valid.
    if (const auto parsed = boost::urls::parse_uri(text)) {
        if (auto address = fromParsed(*parsed)) return address;
    }
    const auto strict = strictAddress(text);
    if (!strict) return std::nullopt;
    const auto parsed = boost::urls::parse_uri(*strict);
    return parsed ? fromParsed(*parsed) : std::nullopt;
}

bool isOpenable(std::string_view address) {
    const auto isControl = [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; };
    if (std::ranges::any_of(address, isControl)) return false;
    const auto parsed = WebAddress::parse(address);
    return parsed && parsed->isHTTP();
}

std::vector<std::string> WebAddress::pathPieces() const {
    std::vector<std::string> pieces;
    std::string_view rest = path;
    while (!rest.empty()) {
        const auto slash = rest.find('/');
        if (slash != 0) pieces.emplace_back(rest.substr(0, slash));
        if (slash == std::string_view::npos) break;
        rest.remove_prefix(slash + 1);
    }
    return pieces;
}

std::vector<WebAddress::QueryItem> WebAddress::queryItems(std::string_view rest) {
    std::vector<QueryItem> items;
    while (true) {
        const auto ampersand = rest.find('&');
        const auto raw = rest.substr(0, ampersand);
        if (!raw.empty()) {
            const auto equals = raw.find('=');
            const auto value =
                equals == std::string_view::npos ? std::string_view() : raw.substr(equals + 1);
            items.push_back({.name = percentDecoded(raw.substr(0, equals)),
                             .value = percentDecoded(value),
                             .raw = std::string(raw)});
        }
        if (ampersand == std::string_view::npos) return items;
        rest.remove_prefix(ampersand + 1);
    }
}

std::string WebAddress::text() const {
    std::string out = scheme + "://";
    if (userInfo) out += *userInfo + "@";
    out += host;
    if (port) out += ":" + std::to_string(*port);
    out += path;
    if (query) out += "?" + *query;
    if (fragment) out += "#" + *fragment;
    return out;
}

std::optional<std::string> resolvedAddress(std::string_view base, std::string_view reference) {
    reference = trimWhitespaceAndNewlines(reference);
    if (const auto absolute = WebAddress::parse(reference)) return absolute->text();
    const auto page = WebAddress::parse(base);
    if (page && reference.starts_with("//")) {
        const auto absolute = WebAddress::parse(page->scheme + ":" + std::string(reference));
        return absolute ? std::optional(absolute->text()) : std::nullopt;
    }
    // Escaping needs a complete address, so a placeholder is put in front and removed afterwards.
    constexpr std::string_view stand = "x://x";
    const auto escaped = strictAddress(
        std::string(stand) + (reference.starts_with('/') ? "" : "/") + std::string(reference));
    if (!page || !escaped || reference.empty()) return std::nullopt;
    const auto relative =
        std::string_view(*escaped).substr(stand.size() + (reference.starts_with('/') ? 0 : 1));
    const auto parsed = boost::urls::parse_relative_ref(relative);
    const std::string pageText = page->text();
    boost::urls::url target;
    if (!parsed || !boost::urls::resolve(boost::urls::url_view(pageText), *parsed, target))
        return std::nullopt;
    auto resolved = fromParsed(target);
    if (!resolved) return std::nullopt;
    removeStepsAboveRoot(resolved->path);
    return resolved->text();
}

bool isHostOrSubhost(std::string_view host, std::string_view domain) {
    if (!host.ends_with(domain)) return false;
    return host.size() == domain.size() || host[host.size() - domain.size() - 1] == '.';
}

std::string percentDecoded(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? hexValue(text[i + 1]) : -1;
        const int low = high >= 0 ? hexValue(text[i + 2]) : -1;
        if (low >= 0) {
            out += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace kit
