#include "NewsroomKit/Stories/CanonicalLink.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

// Real links are shorter; caching thousands of longer ones would take too much memory.
constexpr std::size_t kLongestRemembered = 4096;

bool isDigits(std::string_view text, std::size_t length) {
    return text.size() == length &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Maps a picture of an Apple press release to the release itself:
/// /newsroom/images/2026/10/slug/tile/name.jpg → /newsroom/2026/10/slug/
void replacePressPicture(WebAddress& address) {
    const auto pieces = address.pathPieces();
    const bool picture = pieces.size() > 6 && pieces[0] == "newsroom" && pieces[1] == "images" &&
                         isDigits(pieces[2], 4) && isDigits(pieces[3], 2);
    if (picture) address.path = "/newsroom/" + pieces[2] + "/" + pieces[3] + "/" + pieces[4] + "/";
}

void trimPath(std::string& path) {
    if (path.size() > 1) {
        const auto first = path.find_first_not_of('/');
        const auto last = path.find_last_not_of('/');
        path = first == std::string::npos ? "" : path.substr(first, last - first + 1);
    }
    if (!path.starts_with('/')) path.insert(path.begin(), '/');
}

bool isTrackingItem(const WebAddress::QueryItem& item) {
    constexpr std::array<std::string_view, 4> names{"fbclid", "gclid", "mc_cid", "mc_eid"};
    const std::string name = lowercasedASCII(item.name);
    return name.starts_with("utm_") || std::find(names.begin(), names.end(), name) != names.end();
}

void cleanQuery(WebAddress& address) {
    if (!address.query) return;
    auto items = address.queryItems();
    std::erase_if(items, isTrackingItem);
    std::stable_sort(items.begin(), items.end(), [](const auto& a, const auto& b) {
        return std::tie(a.name, a.value) < std::tie(b.name, b.value);
    });
    std::string query;
    for (const auto& item : items) {
        if (!query.empty()) query += '&';
        query += item.raw;
    }
    address.query = items.empty() ? std::nullopt : std::optional(std::move(query));
}

std::string canonicalOfTrimmed(std::string_view trimmed) {
    // 1. Only web addresses have a canonical form.
    auto address = WebAddress::parse(trimmed);
    if (!address || !address->isHTTP()) return std::string(trimmed);

    // 2. One scheme; fragments and default ports carry no information.
    address->scheme = "https";
    address->fragment.reset();
    if (address->port == 80 || address->port == 443) address->port.reset();

    // 3. Apple's corporate site has two host names.
    if (address->host == hosts::kApple || address->host == hosts::kAppleWWW) {
        address->host = hosts::kAppleWWW;
        replacePressPicture(*address);
    }

    // 4. Slashes around the path, 5. the query's order and its tracking items.
    trimPath(address->path);
    cleanQuery(*address);
    return address->text();
}

}  // namespace

std::string canonicalLink(std::string_view text) {
    return canonicalOfTrimmed(trimWhitespaceAndNewlines(text));
}

CanonicalLinks::CanonicalLinks(std::size_t countLimit) : countLimit_(countLimit) {
    index_.reserve(countLimit + 1);
}

std::string CanonicalLinks::of(std::string_view text) {
    const auto trimmed = trimWhitespaceAndNewlines(text);
    {
        const std::lock_guard lock(mutex_);
        if (const auto known = index_.find(trimmed); known != index_.end()) {
            byUse_.splice(byUse_.begin(), byUse_, known->second);
            return known->second->canonical;
        }
    }
    std::string canonical = canonicalOfTrimmed(trimmed);
    if (trimmed.size() > kLongestRemembered) return canonical;

    const std::lock_guard lock(mutex_);
    if (index_.contains(trimmed)) return canonical;  // another thread was faster
    byUse_.push_front({std::string(trimmed), canonical});
    index_.emplace(byUse_.front().text, byUse_.begin());
    if (byUse_.size() > countLimit_) {
        index_.erase(byUse_.back().text);
        byUse_.pop_back();
    }
    return canonical;
}

std::size_t CanonicalLinks::count() const {
    const std::lock_guard lock(mutex_);
    return byUse_.size();
}

}  // namespace kit
