#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

/// RSS 1.0 has its items beside the channel, which only lists their addresses.
std::string channel(const Edition& edition) {
    const auto& source = *edition.source;
    std::string resources;
    for (const auto& entry : edition.entries) {
        resources += fmt::format("<rdf:li rdf:resource=\"{}\"/>\n", escaped(entry.item->link));
    }
    return fmt::format(
        "<channel rdf:about=\"{}\">\n{}{}{}{}<items>\n<rdf:Seq>\n{}</rdf:Seq>\n"
        "</items>\n</channel>\n",
        escaped(source.home), element("title", source.title), element("link", source.home),
        element("description", source.description), element("dc:date", isoDate(edition.changed)),
        resources);
}

std::string item(const Entry& entry) {
    auto xml = fmt::format("<item rdf:about=\"{}\">\n", escaped(entry.item->link));
    xml += element("title", entry.title) + linkElement(entry);
    xml += element("description", entry.item->text);
    if (!entry.author().empty()) xml += element("dc:creator", entry.author());
    if (entry.dated) xml += element("dc:date", isoDate(*entry.dated));
    return xml +
           fmt::format("<content:encoded>{}</content:encoded>\n</item>\n", cdata(entry.body()));
}

}  // namespace

std::string renderRDF(const Edition& edition) {
    auto xml = fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<rdf:RDF\n"
        " xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"\n"
        " xmlns=\"http://purl.org/rss/1.0/\"\n {}\n {}>\n",
        dublinCoreNamespace, contentNamespace);
    xml += channel(edition);
    for (const auto& entry : edition.entries) xml += item(entry);
    return xml + "</rdf:RDF>\n";
}

}  // namespace pressroom
