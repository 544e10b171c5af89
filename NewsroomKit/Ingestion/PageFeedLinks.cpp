#include "NewsroomKit/Ingestion/PageFeedLinks.h"

#include <algorithm>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Ingestion/LinkedText.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace newsroom {

namespace {

constexpr std::size_t kMostLinks = 20;
// The head of a page comes first; what is further away is no head.
constexpr std::size_t kHeadBytes = 512 * 1024;

bool hasWord(std::string_view list, std::string_view word) {
    const auto at = list.find(word);
    if (at == std::string_view::npos) return false;
    const auto end = at + word.size();
    return (at == 0 || list[at - 1] == ' ') && (end == list.size() || list[end] == ' ');
}

}  // namespace

std::vector<std::string> pageFeedLinks(std::string_view html, std::string_view pageURL) {
    html = html.substr(0, kHeadBytes);
    std::vector<std::string> links;
    for (auto at = html.find('<'); at != std::string_view::npos && links.size() < kMostLinks;
         at = html.find('<', at + 1)) {
        if (!equalsLowercase(html.substr(at + 1, 4), "link")) continue;
        const auto end = tagEnd(html, at);
        if (end == std::string_view::npos) continue;
        const auto tag = html.substr(at + 1, end - at - 1);
        const auto rel = lowercasedASCII(attributeValue(tag, "rel"));
        const auto type = lowercasedASCII(attributeValue(tag, "type"));
        const bool feed =
            type.find("rss") != std::string::npos || type.find("atom") != std::string::npos;
        if (!hasWord(rel, "alternate") || !feed) continue;
        const auto address = resolvedAddress(pageURL, attributeValue(tag, "href"));
        if (!address || !address->starts_with("http")) continue;
        if (std::find(links.begin(), links.end(), *address) == links.end())
            links.push_back(*address);
    }
    return links;
}

std::optional<std::string> pageTitle(std::string_view html) {
    html = html.substr(0, kHeadBytes);
    const std::string lower = lowercasedASCII(html);
    const auto open = lower.find("<title");
    const auto begin = open == std::string::npos ? open : lower.find('>', open);
    if (begin == std::string::npos) return std::nullopt;
    const auto end = lower.find("</title", begin);
    auto inside = trimWhitespaceAndNewlines(
        html.substr(begin + 1, end == std::string::npos ? 200 : end - begin - 1));
    constexpr std::string_view cdata = "<![CDATA[";
    if (inside.starts_with(cdata)) {
        inside.remove_prefix(cdata.size());
        inside = inside.substr(0, inside.find("]]>"));
    }
    std::string title = cleanHeadline(inside);
    title = std::string(
        trimWhitespaceAndNewlines(std::string_view(title).substr(0, title.find(" - "))));
    return title.empty() ? std::nullopt : std::optional(title);
}

}  // namespace newsroom
