#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

/// WordPress identifies a post by its number, independent of its address.
std::string guid(const Entry& entry) {
    const auto& story = entry.story();
    if (story.guidOnly.value_or(false)) {
        return fmt::format("<guid isPermaLink=\"true\">{}</guid>\n", escaped(entry.item->link));
    }
    const auto site = entry.source().home.substr(0, entry.source().home.find('/', 8));
    const auto number = story.post ? std::to_string(*story.post) : entry.item->key;
    return fmt::format("<guid isPermaLink=\"false\">{}/?p={}</guid>\n", site, number);
}

std::string item(const Entry& entry) {
    std::string xml = "<item>\n" + element("title", entry.title) + linkElement(entry);
    if (!entry.author().empty()) {
        xml += fmt::format("<dc:creator>{}</dc:creator>\n", cdata(entry.author()));
    }
    if (entry.dated) xml += element("pubDate", mailDate(*entry.dated));
    for (const auto& tag : entry.story().tags.value_or(std::vector<std::string>{})) {
        xml += fmt::format("<category>{}</category>\n", cdata(tag));
    }
    xml += guid(entry) + pictureElement(entry);
    if (!entry.item->text.empty()) {
        xml += fmt::format("<description>{}</description>\n", cdata(escaped(entry.item->text)));
    }
    return xml +
           fmt::format("<content:encoded>{}</content:encoded>\n</item>\n", cdata(entry.body()));
}

}  // namespace

std::string renderWordPress(const Edition& edition) {
    auto xml = rssOpening(
        edition, fmt::format("{} {} {} {}\n"
                             "xmlns:sy=\"http://purl.org/rss/1.0/modules/syndication/\"",
                             contentNamespace, dublinCoreNamespace, atomNamespace, mediaNamespace));
    xml += fmt::format("<atom:link href=\"{}\" rel=\"self\" type=\"application/rss+xml\"/>\n",
                       escaped(edition.source->address));
    xml += element("lastBuildDate", mailDate(edition.changed));
    xml +=
        "<language>en-US</language>\n<sy:updatePeriod>hourly</sy:updatePeriod>\n"
        "<sy:updateFrequency>1</sy:updateFrequency>\n"
        "<generator>https://wordpress.org/?v=6.8.3</generator>\n";
    for (const auto& entry : edition.entries) xml += item(entry);
    return xml.append(rssClosing);
}

}  // namespace pressroom
