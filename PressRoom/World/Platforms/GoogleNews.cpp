#include <numeric>

#include <fmt/format.h>

#include "PressRoom/Server/Conditional.h"
#include "PressRoom/World/ItemID.h"
#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

/// The length of a text as one or two bytes of seven bits each.
std::string lengthBytes(std::size_t length) {
    if (length < 0x80) return {static_cast<char>(length)};
    return {static_cast<char>((length & 0x7f) | 0x80), static_cast<char>(length >> 7)};
}

/// As on the real host, identifiers of the older form hold the article's address, those of the
/// newer form don't.
std::string opaqueID(const Item& item) {
    const bool isOpaque = std::accumulate(item.link.begin(), item.link.end(), 0) % 2 != 0;
    const auto content =
        isOpaque ? "AU_yqL" + std::string(item.link.rbegin(), item.link.rend()) : item.link;
    return "CBMi" + addressBase64(lengthBytes(content.size()) + content);
}

std::string item(const Entry& entry) {
    const auto link = googleNewsLink(*entry.item);
    const auto publisher = entry.publisher();
    const auto anchor = fmt::format(
        "<a href=\"{}\" target=\"_blank\">{}</a>&nbsp;&nbsp;"
        "<font color=\"#6f6f6f\">{}</font>",
        escaped(link), escaped(entry.title), escaped(publisher));
    const auto home = entry.item->page.substr(0, entry.item->page.find('/', 8));
    return fmt::format(
        "<item>{}{}<guid isPermaLink=\"false\">{}</guid>\n{}{}"
        "<source url=\"{}\">{}</source>\n</item>\n",
        element("title", entry.title + " - " + publisher), element("link", link),
        opaqueID(*entry.item), entry.dated ? element("pubDate", httpDate(*entry.dated)) : "",
        element("description", anchor), escaped(home), escaped(publisher));
}

}  // namespace

std::string googleNewsLink(const Item& item) {
    return "https://news.google.com/rss/articles/" + opaqueID(item) + "?oc=5";
}

std::string renderGoogleNews(const Edition& edition) {
    auto xml = rssOpening(edition, mediaNamespace);
    xml +=
        "<generator>NFE/5.0</generator>\n<language>en-US</language>\n"
        "<webMaster>news-webmaster@google.com</webMaster>\n<copyright>Google Inc.</copyright>\n";
    xml += element("lastBuildDate", httpDate(edition.changed));
    for (const auto& entry : edition.entries) xml += item(entry);
    return xml.append(rssClosing);
}

}  // namespace pressroom
