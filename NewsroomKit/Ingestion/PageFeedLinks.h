#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// Feed addresses that a web page names in its "link" elements (rel "alternate", a type that
/// names rss or atom), in order. Only http and https addresses; a relative one is taken
/// from the page's "base" element or `pageURL`.
std::vector<std::string> pageFeedLinks(std::string_view html, std::string_view pageURL);

/// The page's title up to " - "; nothing when it has none.
std::optional<std::string> pageTitle(std::string_view html);

}  // namespace kit
