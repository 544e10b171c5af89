#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kit {

/// The name of the outlet that `link` points to, seen from a feed at `feedURL`: nothing
/// when the link has no host or stays on the feed's own site, a known outlet's name, or
/// the bare host.
std::optional<std::string> publisherName(std::string_view link, std::string_view feedURL);

/// The same for hosts in lower case; `feedHost` without any "www.".
std::optional<std::string> publisherNameOfHosts(std::string linkHost, std::string_view feedHost);

/// The host by which a feed's own site is known: lower case, without any "www."; empty when
/// the address has none.
std::string siteHostOf(std::string_view feedURL);

}  // namespace kit
