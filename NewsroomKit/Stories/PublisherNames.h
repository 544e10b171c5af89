#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace newsroom {

/// The name of the outlet that `link` points to, seen from a feed at `feedURL`: nothing
/// when the link has no host or stays on the feed's own site, a known outlet's name, or
/// the bare host.
std::optional<std::string> publisherName(std::string_view link, std::string_view feedURL);

/// The name of the outlet whose domain `host` is or lies under; nothing when unknown.
std::optional<std::string_view> knownOutlet(std::string_view host);

}  // namespace newsroom
