#include "NewsroomKit/Stories/PublisherNames.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Addresses/WebAddress.h"

namespace kit {

namespace {

struct Outlet {
    std::string_view name;
    std::string_view domain;
};

// One domain per outlet. The first row that matches names the link.
constexpr std::array<Outlet, 29> kOutlets{{
    {"The Wall Street Journal", "wsj.com"},
    {"The New York Times", "nytimes.com"},
    {"Bloomberg", "bloomberg.com"},
    {"The Information", "theinformation.com"},
    {"Reuters", "reuters.com"},
    {"Financial Times", "ft.com"},
    {"CNBC", "cnbc.com"},
    {"Ars Technica", "arstechnica.com"},
    {"The Atlantic", "theatlantic.com"},
    {"9to5Mac", "9to5mac.com"},
    {"MacRumors", "macrumors.com"},
    {"The Verge", "theverge.com"},
    {"Apple", "apple.com"},
    {"MacStories", "macstories.net"},
    {"Six Colors", "sixcolors.com"},
    {"Daring Fireball", "daringfireball.net"},
    {"AppleInsider", "appleinsider.com"},
    {"Macworld", "macworld.com"},
    {"TidBITS", "tidbits.com"},
    {"TechCrunch", "techcrunch.com"},
    {"Engadget", "engadget.com"},
    {"Wired", "wired.com"},
    {"Axios", "axios.com"},
    {"Tarnwick Brell", "tarnwick-brell.example"},
    {"YouTube", "youtube.com"},
    {"X", "x.com"},
    {"Bluesky", "bsky.app"},
    {"Mastodon", "mastodon.social"},
    {"GitHub", "github.com"},
}};

constexpr std::string_view kWWW = "www.";

std::string hostOf(std::string_view link) {
    const auto address = WebAddress::parse(link);
    return address ? address->host : std::string();
}

void eraseEvery(std::string& text, std::string_view part) {
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
        text.erase(at, part.size());
    }
}

}  // namespace

std::optional<std::string_view> knownOutlet(std::string_view host) {
    for (const auto& outlet : kOutlets) {
        if (isHostOrSubhost(host, outlet.domain)) return outlet.name;
    }
    return std::nullopt;
}

bool isKnownOutletName(std::string_view name) {
    return std::any_of(kOutlets.begin(), kOutlets.end(),
                       [&](const Outlet& outlet) { return outlet.name == name; });
}

std::string siteHostOf(std::string_view feedURL) {
    std::string host = hostOf(feedURL);
    eraseEvery(host, kWWW);
    return host;
}

std::optional<std::string> publisherName(std::string_view link, std::string_view feedURL) {
    return publisherNameOfHosts(hostOf(link), siteHostOf(feedURL));
}

std::optional<std::string> publisherNameOfHosts(std::string linkHost, std::string_view feedHost) {
    // 1. and 2. The two hosts without their "www.".
    if (linkHost.starts_with(kWWW)) linkHost.erase(0, kWWW.size());
    if (linkHost.empty()) return std::nullopt;

    // 3. A link on the source's own site has no other publisher.
    if (!feedHost.empty() && isHostOrSubhost(linkHost, feedHost)) return std::nullopt;

    // 4. and 5.
    if (const auto known = knownOutlet(linkHost)) return std::string(*known);
    return linkHost;
}

}  // namespace kit
