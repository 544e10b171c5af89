#pragma once

#include <array>
#include <string_view>

namespace kit {

/// A feed of press releases that comes with the desk.
struct WireFeed {
    std::string_view id;
    std::string_view name;
    std::string_view address;
};

/// The wires' feeds of all companies, of which the desk keeps the releases of the companies that
/// it follows. They turn over within the hour on weekdays.
inline constexpr std::array kWireFeeds{
    WireFeed{"globenewswire", "GlobeNewswire",
             "https://www.globenewswire.com/RssFeed/orgclass/1/feedTitle/"
             "GlobeNewswire%20-%20News%20about%20Public%20Companies"},
    WireFeed{"prnewswire", "PR Newswire", "https://www.prnewswire.com/rss/news-releases-list.rss"},
};

}  // namespace kit
