#include <algorithm>

#include <fmt/format.h>

#include "PressRoom/Server/Conditional.h"
#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

constexpr std::size_t longest = 10;

std::string item(const Entry& entry) {
    auto xml = fmt::format("<item>\n<title>{}</title>\n", cdata(entry.title));
    xml += element("link", fmt::format("{}?source=rss-{}------2", entry.item->link,
                                       entry.source().account.value_or("")));
    xml += fmt::format("<guid isPermaLink=\"false\">https://medium.com/p/{}</guid>\n",
                       entry.item->key);
    for (const auto& tag : entry.story().tags.value_or(std::vector<std::string>{})) {
        xml += fmt::format("<category>{}</category>\n", cdata(tag));
    }
    xml += fmt::format("<dc:creator>{}</dc:creator>\n", cdata(entry.author()));
    if (entry.dated) xml += element("pubDate", httpDate(*entry.dated));
    xml += element("atom:updated", isoDate(entry.updated, ".344Z"));
    return xml +
           fmt::format("<content:encoded>{}</content:encoded>\n</item>\n", cdata(entry.body()));
}

}  // namespace

std::string renderMedium(const Edition& edition) {
    auto xml = rssOpening(
        edition, fmt::format("{} {} {}", contentNamespace, dublinCoreNamespace, atomNamespace));
    xml += "<generator>Medium</generator>\n" + element("lastBuildDate", httpDate(edition.changed));
    const auto shown = std::min(edition.entries.size(), longest);
    for (std::size_t i = 0; i < shown; ++i) xml += item(edition.entries[i]);
    return xml.append(rssClosing);
}

}  // namespace pressroom
