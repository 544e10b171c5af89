#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

std::string entryXML(const Entry& entry) {
    std::string xml = "<entry>\n";
    if (!entry.author().empty()) {
        xml += "<author>\n" + element("name", entry.author()) + "</author>\n";
    }
    xml += fmt::format("<title type=\"html\">{}</title>\n", cdata(escaped(entry.title)));
    xml += fmt::format("<link rel=\"alternate\" type=\"text/html\" href=\"{}\"/>\n",
                       escaped(entry.item->link));
    xml += element("id", entry.item->page);
    xml += element("updated", isoDate(entry.updated));
    if (entry.dated) xml += element("published", isoDate(*entry.dated));
    xml += pictureElement(entry);
    if (!entry.item->text.empty()) {
        xml +=
            fmt::format("<summary type=\"html\">{}</summary>\n", cdata(escaped(entry.item->text)));
    }
    return xml +
           fmt::format("<content type=\"html\">{}</content>\n</entry>\n", escaped(entry.body()));
}

}  // namespace

std::string renderAtom(const Edition& edition) {
    const auto& source = *edition.source;
    auto xml = fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<feed xmlns=\"http://www.w3.org/2005/Atom\" {} xml:lang=\"en-US\">\n",
        mediaNamespace);
    xml += element("title", source.title) + element("subtitle", source.description);
    xml += element("updated", isoDate(edition.changed)) + element("id", source.address);
    xml += fmt::format(
        "<link rel=\"alternate\" type=\"text/html\" href=\"{}\"/>\n"
        "<link rel=\"self\" type=\"application/atom+xml\" href=\"{}\"/>\n",
        escaped(source.home), escaped(source.address));
    for (const auto& entry : edition.entries) xml += entryXML(entry);
    return xml + "</feed>\n";
}

}  // namespace pressroom
