#pragma once

#include <span>
#include <string_view>

namespace kit {

/// A publisher of news that others credit: a newspaper, a site, an agency, or a person whose own
/// account is where the news appears first. Platforms on which anyone publishes are none.
struct Outlet {
    std::string_view name{};
    std::string_view aliases{};    ///< other ways to write the name, separated by "|"
    std::string_view hosts{};      ///< the main one first, separated by spaces
    std::string_view accounts{};   ///< its own, each "X:verge", separated by spaces
    std::string_view reporters{};  ///< accounts of people who work for it, in the same form
    std::string_view owner{};      ///< empty when it belongs to itself
    bool isApple = false;          ///< Apple publishes it
};

/// Calls `use` with each of the parts of a list in a row.
template <class Use>
void forEachPart(std::string_view list, char separator, Use use) {
    while (!list.empty()) {
        const auto end = list.find(separator);
        use(list.substr(0, end));
        list = end == std::string_view::npos ? std::string_view() : list.substr(end + 1);
    }
}

/// All known outlets.
std::span<const Outlet> knownOutlets();

/// The outlet that is called so, in any letter case and with or without a leading "the"; null when
/// none is.
const Outlet* outletNamed(std::string_view name);

/// The outlet that publishes on `host` or on a host above it; null when none does.
const Outlet* outletOfHost(std::string_view host);

/// The outlet that an account on a social platform ("X", "Bluesky", "Mastodon", "Threads",
/// "YouTube", "Medium") belongs to, its own or a reporter's, with or without the leading "@"; null
/// when none is known. Handles that are host names belong to the host's outlet.
const Outlet* outletOfAccount(std::string_view platform, std::string_view account);

/// The first of the outlet's hosts; empty when it has none.
std::string_view mainHost(const Outlet& outlet);

}  // namespace kit
