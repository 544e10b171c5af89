#include "NewsroomKit/Sources/SourceAddress.h"

#include <algorithm>
#include <optional>

#include "NewsroomKit/Addresses/URLRepair.h"
#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/FeedAddresses.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit::SourceAddress {

namespace {

/// Labels of letters, digits and hyphens, two or more, joined by single dots.
bool isDottedServer(std::string_view server) {
    bool dotted = false;
    std::size_t labelLength = 0;
    for (const char c : server) {
        if (c == '.') {
            if (labelLength == 0) return false;
            dotted = true;
            labelLength = 0;
        } else if (isASCIIAlphanumeric(c) || c == '-') {
            ++labelLength;
        } else {
            return false;
        }
    }
    return dotted && labelLength > 0;
}

/// "@user@server" or "user@server", and nothing else around it.
std::optional<std::string> fediverseFeed(std::string_view text) {
    if (text.starts_with('@')) text.remove_prefix(1);
    const auto at = text.find('@');
    if (at == std::string_view::npos || at == 0) return std::nullopt;
    const auto user = text.substr(0, at);
    const auto server = text.substr(at + 1);
    const bool plainUser = std::all_of(user.begin(), user.end(), [](char c) {
        return isASCIIAlphanumeric(c) || c == '_' || c == '.';
    });
    if (!plainUser || !isDottedServer(server)) return std::nullopt;
    return mastodonFeed(server, user);
}

/// The feed of an address on a platform whose feeds have a form of their own.
std::optional<std::string> platformFeed(const WebAddress& address) {
    const auto pieces = address.pathPieces();
    const std::string_view host = address.host;
    const auto first = [&](std::string_view name) {
        return pieces.size() >= 2 && pieces[0] == name;
    };

    if (host == hosts::kBluesky && first("profile")) return blueskyProfileFeed(pieces[1]);
    if (host.ends_with(hosts::kBlueskyHandleSuffix)) return blueskyProfileFeed(host);
    if (isHostOrSubhost(host, hosts::kYouTube) && first("channel"))
        return youTubeChannelFeed(pieces[1]);
    if (isHostOrSubhost(host, hosts::kReddit) && first("r")) return redditFeed(pieces[1]);

    const bool account = pieces.size() == 1 && pieces[0].starts_with('@');
    if (host == hosts::kMedium && account) return mediumFeed(pieces[0]);
    if (account && pieces[0].size() >= 2 && !pieces[0].ends_with(".rss") &&
        !isHostOrSubhost(host, hosts::kYouTube) && host != hosts::kYouTubeShort) {
        return mastodonFeed(host, std::string_view(pieces[0]).substr(1));
    }
    return std::nullopt;
}

}  // namespace

std::vector<std::string> candidates(std::string_view typed) {
    const auto trimmed = trimWhitespaceAndNewlines(typed);
    if (trimmed.empty()) return {};
    if (auto feed = fediverseFeed(trimmed)) return {std::move(*feed)};

    const bool hasScheme = trimmed.find("://") != std::string_view::npos;
    const std::string full = (hasScheme ? "" : "https://") + std::string(trimmed);
    const auto address = WebAddress::parse(full);
    if (!address) return {};
    if (auto feed = platformFeed(*address)) return {std::move(*feed)};
    return {strictAddress(full).value_or(full)};
}

}  // namespace kit::SourceAddress
