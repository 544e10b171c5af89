#include "NewsroomKit/Ingestion/CreditHosts.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

struct HostRow {
    std::string_view domain;
    CreditHost kind;
};

// clang-format off
constexpr HostRow kHosts[] = {
    {"github.com", CreditHost::platform}, {"github.io", CreditHost::platform},
    {"gitlab.com", CreditHost::platform}, {"bitbucket.org", CreditHost::platform},
    {"codeberg.org", CreditHost::platform}, {"sourceforge.net", CreditHost::platform},
    {"sr.ht", CreditHost::platform}, {"launchpad.net", CreditHost::platform},
    {"stackoverflow.com", CreditHost::platform}, {"stackexchange.com", CreditHost::platform},
    {"npmjs.com", CreditHost::platform}, {"pypi.org", CreditHost::platform},
    {"rubygems.org", CreditHost::platform}, {"crates.io", CreditHost::platform},
    {"youtube.com", CreditHost::platform}, {"youtu.be", CreditHost::platform},
    {"vimeo.com", CreditHost::platform}, {"twitch.tv", CreditHost::platform},
    {"tiktok.com", CreditHost::platform}, {"instagram.com", CreditHost::platform},
    {"facebook.com", CreditHost::platform}, {"linkedin.com", CreditHost::platform},
    {"twitter.com", CreditHost::platform}, {"x.com", CreditHost::platform},
    {"threads.net", CreditHost::platform}, {"threads.com", CreditHost::platform},
    {"bsky.app", CreditHost::platform}, {"mastodon.social", CreditHost::platform},
    {"plus.google.com", CreditHost::platform}, {"reddit.com", CreditHost::platform},
    {"weibo.com", CreditHost::platform}, {"discord.com", CreditHost::platform},
    {"t.me", CreditHost::platform}, {"telegram.org", CreditHost::platform},
    {"medium.com", CreditHost::platform}, {"substack.com", CreditHost::platform},
    {"wordpress.com", CreditHost::platform}, {"blogspot.com", CreditHost::platform},
    {"blogger.com", CreditHost::platform}, {"tumblr.com", CreditHost::platform},
    {"typepad.com", CreditHost::platform}, {"livejournal.com", CreditHost::platform},
    {"flickr.com", CreditHost::platform}, {"pinterest.com", CreditHost::platform},
    {"soundcloud.com", CreditHost::platform}, {"spotify.com", CreditHost::platform},

    {"wikipedia.org", CreditHost::institution}, {"wikimedia.org", CreditHost::institution},
    {"w3.org", CreditHost::institution}, {"ietf.org", CreditHost::institution},
    {"europa.eu", CreditHost::institution}, {"arxiv.org", CreditHost::institution},
    {"acm.org", CreditHost::institution}, {"doi.org", CreditHost::institution},
    {"courtlistener.com", CreditHost::institution}, {"statista.com", CreditHost::institution},

    {"amazon.com", CreditHost::service}, {"amzn.to", CreditHost::service},
    {"ebay.com", CreditHost::service}, {"bestbuy.com", CreditHost::service},
    {"walmart.com", CreditHost::service}, {"etsy.com", CreditHost::service},
    {"itunes.apple.com", CreditHost::service}, {"apps.apple.com", CreditHost::service},
    {"support.apple.com", CreditHost::service}, {"play.google.com", CreditHost::service},
    {"docs.google.com", CreditHost::service}, {"drive.google.com", CreditHost::service},
    {"maps.google.com", CreditHost::service}, {"gettyimages.com", CreditHost::service},
    {"shutterstock.com", CreditHost::service}, {"unsplash.com", CreditHost::service},
    {"bit.ly", CreditHost::service}, {"t.co", CreditHost::service},
    {"goo.gl", CreditHost::service}, {"tinyurl.com", CreditHost::service},
    {"feedburner.com", CreditHost::service}, {"feedsportal.com", CreditHost::service},
    {"doubleclick.net", CreditHost::service}, {"patreon.com", CreditHost::service},
    {"paypal.com", CreditHost::service}, {"kickstarter.com", CreditHost::service},
    {"businesswire.com", CreditHost::service}, {"prnewswire.com", CreditHost::service},
    {"globenewswire.com", CreditHost::service}, {"accesswire.com", CreditHost::service},
};

// Words in the path of pages that gather or sell instead of telling news.
constexpr std::array<std::string_view, 15> kGatheringWords{
    "buyers-guide", "buying-guide", "buyersguide", "guide", "guides", "deals", "tag", "tags",
    "topic", "topics", "category", "author", "authors", "search", "roundup"};
// clang-format on

constexpr std::size_t kFewestHyphens = 3;
constexpr std::size_t kFewestDigits = 5;
constexpr std::size_t kFewestLetters = 4;

/// Only letters and digits, in lower case; without "the" at the start.
std::string squeezed(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (isASCIIAlphanumeric(c)) out += lowercaseASCII(c);
    }
    return out.starts_with("the") && out.size() > 3 + kFewestLetters ? out.substr(3) : out;
}

bool isAuthority(std::string_view label) {
    return label == "gov" || label == "edu" || label == "mil" || label == "int" || label == "ac" ||
           label == "gob" || label == "gouv";
}

}  // namespace

CreditHost creditHost(std::string_view host) {
    for (const auto& [domain, kind] : kHosts) {
        if (isHostOrSubhost(host, domain)) return kind;
    }
    const auto last = host.rfind('.');
    if (last == std::string_view::npos) return CreditHost::service;
    const auto before = host.substr(0, last);
    const bool institution = host.substr(last) == ".org" || isAuthority(host.substr(last + 1)) ||
                             isAuthority(before.substr(before.rfind('.') + 1));
    return institution ? CreditHost::institution : CreditHost::site;
}

bool isArticleAddress(std::string_view text) {
    const auto address = WebAddress::parse(text);
    if (!address) return false;
    const auto pieces = address->pathPieces();
    if (pieces.empty()) return false;
    for (const auto& piece : pieces) {
        const bool gathers = std::find(kGatheringWords.begin(), kGatheringWords.end(), piece) !=
                             kGatheringWords.end();
        if (gathers || piece.starts_with("best-") || piece.find("-deals") != std::string::npos) {
            return false;
        }
    }
    const auto& last = pieces.back();
    for (const std::string_view file : {".jpg", ".jpeg", ".png", ".gif", ".webp", ".mp4", ".pdf"}) {
        if (last.ends_with(file)) return false;
    }
    const auto hyphens =
        std::count(last.begin(), last.end(), '-') + std::count(last.begin(), last.end(), '_');
    const auto digits = std::count_if(last.begin(), last.end(), isASCIIDigit);
    const bool dated = std::any_of(pieces.begin(), pieces.end() - 1, [](const auto& piece) {
        return piece.size() >= 4 && piece.starts_with("20") && isASCIIDigit(piece[2]);
    });
    return static_cast<std::size_t>(hyphens) >= kFewestHyphens ||
           static_cast<std::size_t>(digits) >= kFewestDigits || dated;
}

bool namesHost(std::string_view name, std::string_view host) {
    const std::string words = squeezed(name);
    const auto domain = registeredDomain(host);
    const std::string label = squeezed(domain.substr(0, domain.find('.')));
    if (words.size() < kFewestLetters || label.size() < kFewestLetters) return words == label;
    return words.find(label) != std::string::npos || label.find(words) != std::string::npos;
}

std::string_view registeredDomain(std::string_view host) {
    if (host.starts_with("www.")) host.remove_prefix(4);
    auto at = host.rfind('.');
    if (at == std::string_view::npos || at == 0) return host;
    const auto before = [&] { return at == 0 ? at : host.rfind('.', at - 1); };
    // "co.uk", "com.au" and the like are registered under, not themselves.
    const auto second = before();
    if (second == std::string_view::npos) return host;
    const bool shared = host.size() - at == 3 && at - second - 1 <= 3;
    if (!shared) return host.substr(second + 1);
    at = second;
    const auto third = before();
    return third == std::string_view::npos ? host : host.substr(third + 1);
}

}  // namespace kit
