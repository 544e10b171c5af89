#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

std::string item(const Entry& entry) {
    std::string xml = "<item>\n" + element("title", entry.title) + linkElement(entry);
    xml += fmt::format("<guid isPermaLink=\"true\">{}</guid>\n", escaped(entry.item->link));
    if (!entry.author().empty()) {
        const auto host = entry.source().home.substr(8, entry.source().home.find('/', 8) - 8);
        xml += element("author", fmt::format("news@{} ({})", host, entry.author()));
    }
    if (entry.dated) xml += element("pubDate", mailDate(*entry.dated));
    return xml + pictureElement(entry) + element("description", entry.body()) + "</item>\n";
}

}  // namespace

std::string renderRSS(const Edition& edition) {
    auto xml = rssOpening(edition, mediaNamespace);
    xml += "<language>en-US</language>\n" + element("pubDate", mailDate(edition.changed));
    for (const auto& entry : edition.entries) xml += item(entry);
    return xml.append(rssClosing);
}

}  // namespace pressroom
