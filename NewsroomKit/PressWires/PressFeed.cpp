#include "NewsroomKit/PressWires/PressFeed.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Feeds/FeedDates.h"
#include "NewsroomKit/Feeds/FeedTree.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Feeds/TextTruncation.h"
#include "NewsroomKit/PressWires/StockSymbols.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Pattern.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::size_t kLongestSummary = 1'000;
constexpr std::size_t kLongestCompany = 80;

std::string textOf(const XMLElement& item, std::string_view name) {
    return cleanHeadline(item.childText(name));
}

std::string summaryOf(const XMLElement& item) {
    for (const std::string_view name : {"description", "summary", "encoded", "content"}) {
        const auto text = textOf(item, name);
        if (!text.empty()) return cutAtBoundary(text, kLongestSummary);
    }
    return {};
}

std::optional<Instant> publishedAt(const XMLElement& item) {
    for (const std::string_view name : {"pubDate", "published", "date", "updated"}) {
        if (const auto date = parseFeedDate(item.childText(name))) return date;
    }
    return std::nullopt;
}

std::optional<ListedSymbol> symbolOfCategories(const XMLElement& item) {
    for (const auto& category : item.children) {
        if (category.name != "category" || !category.attribute("domain").ends_with("/rss/stock")) {
            continue;
        }
        if (auto listed = listedSymbol(category.text)) return listed;
    }
    return std::nullopt;
}

/// The company before "(NASDAQ: …)" or "today announced", in the sentence after the place and day:
/// "AUSTIN, Nov. 20, 2026 /PRNewswire/ -- Example, Inc. (NASDAQ: EXMP) today announced".
std::optional<std::string> companyIn(std::string_view summary,
                                     std::optional<std::size_t> symbolAt) {
    const auto dash = summary.find("-- ");
    if (dash == std::string_view::npos) return std::nullopt;
    auto end = summary.find(" today ", dash);
    if (symbolAt && *symbolAt > dash) end = std::min(end, *symbolAt);
    if (end == std::string_view::npos) return std::nullopt;
    auto name = summary.substr(dash + 3, end - dash - 3);
    // Its short name may stand between: Example, Inc. ("Example") (NASDAQ: EXMP).
    name = trimWhitespaceAndNewlines(name.substr(0, name.find(" (")));
    while (name.ends_with(',')) name.remove_suffix(1);
    if (name.empty() || name.size() > kLongestCompany) return std::nullopt;
    return std::string(name);
}

std::optional<std::string> releaseLink(const XMLElement& item) {
    auto link = pageLink(item);
    if (link.empty()) link = item.childText("guid");
    const auto address = WebAddress::parse(link);
    if (!address || !address->isHTTP()) return std::nullopt;
    return std::string(link);
}

PressRelease readRelease(const XMLElement& item) {
    PressRelease release{.title = textOf(item, "title"),
                         .published = publishedAt(item),
                         .link = releaseLink(item),
                         .summary = summaryOf(item)};
    auto listed = symbolOfCategories(item);
    const auto inText = findSymbol(release.summary);
    if (!listed && inText) listed = inText->listed;
    if (!listed) {
        if (const auto inTitle = findSymbol(release.title)) listed = inTitle->listed;
    }
    if (listed) {
        release.exchange = std::move(listed->exchange);
        release.symbol = std::move(listed->symbol);
    }
    auto company = textOf(item, "contributor");
    if (company.empty()) company = textOf(item, "creator");
    if (!company.empty()) {
        release.company = std::move(company);
    } else {
        release.company =
            companyIn(release.summary, inText ? std::optional(inText->at) : std::nullopt);
    }
    return release;
}

/// What a wire says instead of releases; nothing when it knows the channel.
std::optional<std::string> channelFault(const FeedTree& feed) {
    static const Pattern refusal(
        R"(\bchannel\b.*\b(unavailable|not available|unknown|invalid|not found)\b)",
        Pattern::Letters::ignoringCase);
    if (feed.items.empty()) {
        auto text = cleanHeadline(feed.channel.childText("description"));
        if (refusal.occursIn(text)) return text;
        return std::nullopt;
    }
    const auto address = WebAddress::parse(pageLink(feed.items.front()));
    const bool isNewsOfAll = feed.channel.childText("title").empty() && address &&
                             isHostOrSubhost(address->host, "prnewswire.com");
    if (!isNewsOfAll) return std::nullopt;
    return "PR Newswire answered with the news of all companies instead of the channel.";
}

}  // namespace

bool isLawFirmNotice(const PressRelease& release) {
    static const Pattern notice(
        "(investor alert|class action|shareholder alert|law firm|encourages .* investors)",
        Pattern::Letters::ignoringCase);
    static const Pattern solicitation(
        R"(\b(law (firm|offices)|llp)\b.*\b(reminds|announces|encourages|urges|investigat\w+)\b)"
        R"(.*\b(purchasers|investors|shareholders|class action|securities)\b)",
        Pattern::Letters::ignoringCase);
    return notice.occursIn(release.title) || solicitation.occursIn(release.summary);
}

PressResult parsePress(std::string_view bytes) {
    const auto feed = parseFeedTree(bytes);
    if (!feed) {
        const auto error = feed.error() == FeedParserError::notAFeed ? PressError::notAFeed
                                                                     : PressError::malformed;
        return PressFault{error, std::string(label(error))};
    }
    if (auto text = channelFault(feed.value())) {
        return PressFault{PressError::channelUnknown, std::move(*text)};
    }
    PressSheet sheet{.channel = cleanHeadline(feed.value().channel.childText("title"))};
    for (const auto& item : feed.value().items) {
        auto release = readRelease(item);
        if (release.title.empty()) continue;
        if (isLawFirmNotice(release)) {
            ++sheet.dropped;
        } else {
            sheet.releases.push_back(std::move(release));
        }
    }
    return sheet;
}

}  // namespace kit
