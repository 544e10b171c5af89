#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

/// A linked story's alternate is the article it comments on; its own page is "related". The
/// author's own articles have no other page.
std::string links(const Entry& entry) {
    auto xml = fmt::format(
        "<link rel=\"alternate\" type=\"text/html\" href=\"{}\"/>\n"
        "<link rel=\"shorturl\" type=\"text/html\" href=\"http://df4.us/{}\"/>\n",
        escaped(entry.item->link), entry.item->key.substr(0, 5));
    if (!entry.item->link.starts_with(entry.source().home)) {
        xml += fmt::format("<link rel=\"related\" type=\"text/html\" href=\"{}\"/>\n",
                           escaped(entry.item->page));
    }
    return xml;
}

std::string entryXML(const Entry& entry) {
    const auto& source = entry.source();
    std::string xml = "<entry>\n" + element("title", entry.title) + links(entry);
    xml += fmt::format("<id>tag:daringfireball.net,{}:/{}</id>\n",
                       isoDate(entry.item->appears, "").substr(0, 4), entry.item->key);
    if (entry.dated) xml += element("published", isoDate(*entry.dated, "Z"));
    xml += element("updated", isoDate(entry.updated, "Z"));
    xml += "<author>\n" + element("name", entry.author()) + element("uri", source.home) +
           "</author>\n";
    return xml +
           fmt::format(
               "<content type=\"html\" xml:base=\"{}\" xml:lang=\"en\">{}</content>\n</entry>\n",
               escaped(source.home), cdata(entry.body()));
}

}  // namespace

std::string renderLinkedList(const Edition& edition) {
    const auto& source = *edition.source;
    auto xml = fmt::format(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<feed xmlns=\"http://www.w3.org/2005/Atom\">\n{}{}"
        "<link rel=\"alternate\" type=\"text/html\" href=\"{}\"/>\n"
        "<link rel=\"self\" type=\"application/atom+xml\" href=\"{}\"/>\n",
        element("title", source.title), element("subtitle", source.description),
        escaped(source.home), escaped(source.address));
    xml += element("id", source.address) + element("updated", isoDate(edition.changed, "Z"));
    for (const auto& entry : edition.entries) xml += entryXML(entry);
    return xml + "</feed>\n";
}

}  // namespace pressroom
