#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

std::string item(const Entry& entry) {
    const auto site = entry.source().home.substr(0, entry.source().home.find('/', 8));
    auto xml = "<item>\n" + element("title", entry.title) + element("itunes:title", entry.title) +
               linkElement(entry);
    xml += fmt::format("<guid isPermaLink=\"false\">{}/episode/{}</guid>\n", site, entry.item->key);
    if (entry.dated) xml += element("pubDate", mailDate(*entry.dated));
    xml += element("itunes:author", entry.author()) + "<itunes:explicit>false</itunes:explicit>\n";
    xml += fmt::format("<itunes:duration>{}</itunes:duration>\n", 3600 + entry.title.size() * 61);
    xml += element("itunes:subtitle", entry.item->text) + element("description", entry.body());
    if (const auto& picture = entry.story().picture) {
        xml += fmt::format("<itunes:image href=\"{}\"/>\n", escaped(picture->url));
    }
    return xml +
           fmt::format(
               "<enclosure url=\"{}/audio/{}.mp3\" length=\"{}\" type=\"audio/mpeg\"/>\n</item>\n",
               site, entry.item->key, 48'000'000 + entry.title.size() * 9973);
}

}  // namespace

std::string renderPodcast(const Edition& edition) {
    const auto& source = *edition.source;
    auto xml = rssOpening(edition,
                          fmt::format("{} {} "
                                      "xmlns:itunes=\"http://www.itunes.com/dtds/podcast-1.0.dtd\"",
                                      contentNamespace, atomNamespace));
    xml += fmt::format("<atom:link href=\"{}\" rel=\"self\" type=\"application/rss+xml\"/>\n",
                       escaped(source.address));
    xml += "<language>en-us</language>\n" +
           element("itunes:author", source.author.value_or(source.title)) +
           "<itunes:category text=\"Technology\"/>\n<itunes:explicit>false</itunes:explicit>\n";
    xml += fmt::format("<itunes:image href=\"{}artwork.jpg\"/>\n", escaped(source.home));
    xml += element("lastBuildDate", mailDate(edition.changed));
    for (const auto& entry : edition.entries) xml += item(entry);
    return xml.append(rssClosing);
}

}  // namespace pressroom
