#include "NewsroomKit/Feeds/ImageExtractor.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Feeds/TagAttribute.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr auto none = std::string_view::npos;

/// Addresses of counters and share buttons, which are in every item of a feed; in lower case.
constexpr std::array<std::string_view, 15> addressesOfButtons{
    "/emoji/",      "/smilies/",   "feedburner.com/~",    "feedblitz.com/~", "feedpress.me",
    "feedsportal",  "pheedo.com/", "feeds.wordpress.com", "flattr",          "/pml.png",
    "addtoany.com", "feedads.",    "vgwort.de",           "/piwik.php",      "/matomo.php"};

/// "stats." begins the host or one of its domains: "https://stats.wordpress.example/b.gif".
bool isOnStatisticsHost(std::string_view lowerCaseAddress) {
    const auto start = lowerCaseAddress.find("//");
    if (start == none) return false;
    auto host = lowerCaseAddress.substr(start + 2);
    host = host.substr(0, host.find_first_of("/?#"));
    return host.starts_with("stats.") || host.find(".stats.") != none;
}

/// The value of a property in a style, "1px" of "width: 1px"; `name` is in lower case.
std::string_view styleValue(std::string_view style, std::string_view name) {
    for (std::size_t at = 0; at + name.size() < style.size(); ++at) {
        if (!standsAt(style, at, name)) continue;
        // "max-width" is another property.
        if (at > 0 && (isASCIILetter(style[at - 1]) || style[at - 1] == '-')) continue;
        const auto value = style.find_first_not_of(": ", at + name.size());
        if (value == none) return {};
        return style.substr(value, style.find_first_of("; ", value) - value);
    }
    return {};
}

/// Whether the tag gives its picture the width or height of a counting pixel.
bool hasPixelSize(std::string_view tag) {
    const auto style = tagAttribute(tag, "style");
    for (const std::string_view side : {"width", "height"}) {
        if (isPixelSize(tagAttribute(tag, side)) || isPixelSize(styleValue(style, side))) {
            return true;
        }
    }
    return false;
}

/// Addresses that share buttons lead to, in lower case.
constexpr std::array<std::string_view, 12> shareAddresses{
    "facebook.com/sharer", "facebook.com/share.php", "twitter.com/home?status", "twitter.com/share",
    "twitter.com/intent",  "x.com/intent",           "digg.com/submit",         "del.icio.us/post",
    "reddit.com/submit",   "stumbleupon.com",        "linkedin.com/share",      "addtoany.com"};

/// Whether the picture's tag, a part of `html`, directly follows the tag of a share link.
bool isInShareLink(std::string_view html, std::string_view tag) {
    auto before = html.substr(0, static_cast<std::size_t>(tag.data() - html.data()));
    before = before.substr(0, before.rfind('<'));
    before = trimWhitespaceAndNewlines(before.substr(before.rfind('<') + 1));
    if (!standsAt(before, 0, "a ") || !before.ends_with('>')) return false;
    const auto address = lowercasedASCII(tagAttribute(before, "href"));
    return std::any_of(shareAddresses.begin(), shareAddresses.end(),
                       [&](std::string_view part) { return address.find(part) != none; });
}

/// The matches of <img[^>]+src=["']([^"']+)["'] in order, found in one pass: hostile HTML
/// would keep a backtracking matcher busy for hours.
class PictureScanner {
public:
    explicit PictureScanner(std::string_view html) : html_(html) {}

    struct Picture {
        std::string_view address;  ///< still encoded
        std::string_view tag;      ///< the tag without its angle brackets
    };

    std::optional<Picture> next() {
        while (at_ < html_.size()) {
            const auto tag = html_.find('<', at_);
            if (tag == none) break;
            at_ = tag + 1;
            if (!standsAt(html_, tag, "<img")) continue;
            const auto nameEnd = tag + 4;
            const auto tagEnd = std::min(html_.find('>', nameEnd), html_.size());
            if (const auto address = lastSource(nameEnd + 1, tagEnd)) {
                return Picture{*address, html_.substr(nameEnd, tagEnd - nameEnd)};
            }
            // Every later "<img" before this ">" has only the same sources to offer.
            at_ = tagEnd;
        }
        at_ = html_.size();
        return std::nullopt;
    }

private:
    /// The expression is greedy: of several sources in a tag it takes the last that has an
    /// address, and the address may run past the tag's end up to the next quotation mark.
    std::optional<std::string_view> lastSource(std::size_t first, std::size_t tagEnd) {
        constexpr std::string_view attribute = "src=";
        for (auto at = tagEnd; at > first;) {
            --at;
            const auto quote = at + attribute.size();
            if (quote >= tagEnd || !standsAt(html_, at, attribute)) continue;
            if (html_[quote] != '"' && html_[quote] != '\'') continue;
            const auto end = html_.find_first_of("\"'", quote + 1);
            if (end == none || end == quote + 1) continue;
            at_ = end + 1;
            return html_.substr(quote + 1, end - quote - 1);
        }
        return std::nullopt;
    }

    std::string_view html_;
    std::size_t at_ = 0;
};

}  // namespace

bool isWebPicture(std::string_view address) {
    if (!address.starts_with("http")) return false;
    const auto lower = lowercasedASCII(address);
    for (const auto part : addressesOfButtons) {
        if (lower.find(part) != none) return false;
    }
    return !isOnStatisticsHost(lower);
}

bool isPixelSize(std::string_view size) {
    constexpr int largestPixel = 3;
    int value = 0;
    const auto end = size.data() + size.size();
    const auto [stop, error] = std::from_chars(size.data(), end, value);
    if (error != std::errc()) return false;
    const std::string_view unit(stop, static_cast<std::size_t>(end - stop));
    return value <= largestPixel && (unit.empty() || equalsLowercase(unit, "px"));
}

std::optional<std::string> firstPicture(std::string_view html, AddressBase& base,
                                        std::string_view xmlBase) {
    PictureScanner scanner(html);
    while (const auto picture = scanner.next()) {
        if (hasPixelSize(picture->tag) || isInShareLink(html, picture->tag)) continue;
        auto address = base.completed(decodedEntities(picture->address), xmlBase);
        if (isWebPicture(address) && address.find("pixel") == none) return address;
    }
    return std::nullopt;
}

}  // namespace kit
