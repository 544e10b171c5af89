#include "NewsroomKit/Ingestion/PageFeedLinks.h"

#include <algorithm>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Ingestion/LinkedText.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kMostLinks = 20;
// Searching for the end of an unfinished tag is slow.
constexpr int kMostUnfinishedTags = 50;
// The head of a page comes first; a head does not reach further than this.
constexpr std::size_t kHeadBytes = 512 * 1024;

bool hasWord(std::string_view list, std::string_view word) {
    const auto at = list.find(word);
    if (at == std::string_view::npos) return false;
    const auto end = at + word.size();
    return (at == 0 || list[at - 1] == ' ') && (end == list.size() || list[end] == ' ');
}

/// Whether the tag at `open` is `name`, followed by white space or "/".
bool isTag(std::string_view html, std::size_t open, std::string_view name) {
    const auto after = open + 1 + name.size();
    return after < html.size() && equalsLowercase(html.substr(open + 1, name.size()), name) &&
           std::string_view(" \t\n\f\r/").find(html[after]) != std::string_view::npos;
}

/// The position of the next "<" outside comments.
std::size_t nextTag(std::string_view html, std::size_t from) {
    auto at = html.find('<', from);
    while (at != std::string_view::npos && html.substr(at, 4) == "<!--") {
        const auto end = html.find("-->", at);
        if (end == std::string_view::npos) return end;
        at = html.find('<', end);
    }
    return at;
}

/// The feed address of a "link" element's tag; empty for other links.
std::string feedNamedBy(std::string_view tag) {
    const auto rel = lowercasedASCII(attributeValue(tag, "rel"));
    const auto type = lowercasedASCII(attributeValue(tag, "type"));
    const bool feed =
        type.find("rss") != std::string::npos || type.find("atom") != std::string::npos;
    return hasWord(rel, "alternate") && feed ? attributeValue(tag, "href") : std::string();
}

}  // namespace

std::vector<std::string> pageFeedLinks(std::string_view html, std::string_view pageURL) {
    html = html.substr(0, kHeadBytes);
    std::vector<std::string> links;
    std::string base(pageURL);
    int unfinished = 0;
    for (auto at = nextTag(html, 0); at != std::string_view::npos && links.size() < kMostLinks;
         at = nextTag(html, at + 1)) {
        const bool isBase = isTag(html, at, "base");
        if (!isBase && !isTag(html, at, "link")) continue;
        const auto end = tagEnd(html, at);
        if (end == std::string_view::npos && ++unfinished > kMostUnfinishedTags) break;
        if (end == std::string_view::npos) continue;
        const auto tag = html.substr(at + 1, end - at - 1);
        const auto named = isBase ? attributeValue(tag, "href") : feedNamedBy(tag);
        if (named.empty()) continue;
        const auto address = resolvedAddress(base, named);
        if (!address || !address->starts_with("http")) continue;
        if (isBase) {
            base = *address;
        } else if (std::find(links.begin(), links.end(), *address) == links.end()) {
            links.push_back(*address);
        }
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

}  // namespace kit
