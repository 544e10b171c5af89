#include "NewsroomKit/Stories/PublisherNames.h"

#include <algorithm>
#include <array>
#include <vector>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Outlets/Outlet.h"
#include "NewsroomKit/Sources/PlatformHosts.h"

namespace kit {

namespace {

struct NamedDomain {
    std::string_view name;
    std::string_view domain;
};

// Links are named after these and by their host otherwise, so that a longer table of outlets does
// not change what stories are called. The first that matches names the link.
constexpr std::array<std::string_view, 24> kNamedOutlets{"The Wall Street Journal",
                                                         "The New York Times",
                                                         "Bloomberg",
                                                         "The Information",
                                                         "Reuters",
                                                         "Financial Times",
                                                         "CNBC",
                                                         "Ars Technica",
                                                         "The Atlantic",
                                                         "9to5Mac",
                                                         "MacRumors",
                                                         "The Verge",
                                                         "Apple",
                                                         "MacStories",
                                                         "Six Colors",
                                                         "Daring Fireball",
                                                         "AppleInsider",
                                                         "Macworld",
                                                         "TidBITS",
                                                         "TechCrunch",
                                                         "Engadget",
                                                         "Wired",
                                                         "Axios",
                                                         "Tarnwick Brell"};
constexpr std::array<NamedDomain, 5> kNamedPlatforms{{
    {"YouTube", hosts::kYouTube},
    {"X", "x.com"},
    {"Bluesky", hosts::kBluesky},
    {"Mastodon", "mastodon.social"},
    {"GitHub", "github.com"},
}};

const std::vector<NamedDomain>& namedDomains() {
    static const auto domains = [] {
        std::vector<NamedDomain> made;
        for (const auto name : kNamedOutlets) {
            if (const Outlet* outlet = outletNamed(name)) made.push_back({name, mainHost(*outlet)});
        }
        made.insert(made.end(), kNamedPlatforms.begin(), kNamedPlatforms.end());
        return made;
    }();
    return domains;
}

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

std::optional<std::string_view> domainName(std::string_view host) {
    for (const auto& [name, domain] : namedDomains()) {
        if (isHostOrSubhost(host, domain)) return name;
    }
    return std::nullopt;
}

}  // namespace

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
    if (const auto known = domainName(linkHost)) return std::string(*known);
    return linkHost;
}

}  // namespace kit
