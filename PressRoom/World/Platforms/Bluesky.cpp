#include <algorithm>

#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

constexpr std::size_t longest = 30;

/// Line breaks are written as character references.
std::string plainText(std::string_view text) {
    std::string result;
    for (const char c : escaped(text)) {
        if (c == '\n') {
            result += "&#xA;";
        } else {
            result += c;
        }
    }
    return result;
}

/// Posts have neither title nor author, and their guid is no address.
std::string item(const Entry& entry) {
    return fmt::format(
        "<item>\n{}<description>{}</description>\n{}"
        "<guid isPermaLink=\"false\">at://{}/app.bsky.feed.post/{}</guid>\n</item>\n",
        element("link", entry.item->link), plainText(entry.item->text),
        entry.dated ? element("pubDate", shortMailDate(*entry.dated)) : "",
        entry.source().account.value_or(""), entry.item->key);
}

}  // namespace

std::string renderBluesky(const Edition& edition) {
    auto xml = rssOpening(edition, atomNamespace);
    const auto shown = std::min(edition.entries.size(), longest);
    for (std::size_t i = 0; i < shown; ++i) xml += item(edition.entries[i]);
    return xml.append(rssClosing);
}

}  // namespace pressroom
