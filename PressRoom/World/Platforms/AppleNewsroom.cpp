#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

std::string entryXML(const Entry& entry) {
    std::string xml = "<entry>\n" + element("id", entry.item->link);
    xml += fmt::format("<title type=\"text\">{}</title>\n", escaped(entry.title));
    xml += element("updated", isoDate(entry.updated, ".000Z"));
    xml += fmt::format("<link href=\"{}\"/>\n", escaped(entry.item->link));
    if (const auto url = entry.pictureURL(PicturePlace::enclosure); !url.empty()) {
        xml += fmt::format("<link rel=\"enclosure\" type=\"image/jpeg\" href=\"{}\"/>\n",
                           escaped(url));
    }
    xml += "<author>\n" + element("name", entry.author()) + "</author>\n";
    return xml +
           fmt::format("<content type=\"html\">{}</content>\n</entry>\n", escaped(entry.body()));
}

}  // namespace

std::string renderAppleNewsroom(const Edition& edition) {
    const auto& source = *edition.source;
    auto xml = fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<feed xmlns=\"http://www.w3.org/2005/Atom\">\n{}{}{}"
        "<link rel=\"self\" href=\"{}\"/>\n<link href=\"{}\"/>\n",
        element("id", source.address), element("title", source.title),
        element("updated", isoDate(edition.changed, ".000Z")), escaped(source.address),
        escaped(source.home));
    xml += "<author>\n" + element("name", source.author.value_or(source.title)) + "</author>\n";
    for (const auto& entry : edition.entries) xml += entryXML(entry);
    return xml + "</feed>\n";
}

}  // namespace pressroom
