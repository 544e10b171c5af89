#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

std::string item(const Entry& entry) {
    auto xml = "<item>\n" + element("title", entry.title) + element("link", entry.item->link) +
               element("guid", entry.item->link) + element("description", entry.item->text);
    // The developer site writes local dates with the zone's name.
    if (entry.dated) xml += element("pubDate", pacificDate(*entry.dated));
    return xml +
           fmt::format("<content:encoded>{}</content:encoded>\n</item>\n", cdata(entry.body()));
}

}  // namespace

std::string renderAppleBulletin(const Edition& edition) {
    auto xml = rssOpening(edition, fmt::format("{} {}", contentNamespace, atomNamespace));
    xml += fmt::format("<atom:link href=\"{}\" rel=\"self\" type=\"application/rss+xml\"/>\n",
                       escaped(edition.source->address));
    xml += "<language>en-US</language>\n" + element("lastBuildDate", pacificDate(edition.changed)) +
           "<generator>Custom</generator>\n";
    for (const auto& entry : edition.entries) xml += item(entry);
    return xml.append(rssClosing);
}

}  // namespace pressroom
