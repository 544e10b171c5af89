#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

/// The description inside media:content is the picture's alternative text, not the post.
std::string picture(const Entry& entry) {
    const auto url = entry.pictureURL(PicturePlace::mediaContent);
    if (url.empty()) return {};
    return fmt::format(
        "<media:content url=\"{}\" type=\"image/jpeg\" fileSize=\"204505\" medium=\"image\">\n"
        "<media:rating scheme=\"urn:simple\">nonadult</media:rating>\n"
        "<media:description type=\"plain\">A screenshot that shows what the post is about"
        "</media:description>\n</media:content>\n",
        escaped(url));
}

std::string item(const Entry& entry) {
    auto xml = fmt::format("<item>\n<guid isPermaLink=\"true\">{0}</guid>\n<link>{0}</link>\n",
                           escaped(entry.item->link));
    if (entry.dated) xml += element("pubDate", mailDate(*entry.dated));
    xml += element("description", entry.body()) + picture(entry);
    for (const auto& tag : entry.story().tags.value_or(std::vector<std::string>{})) {
        xml += element("category", tag);
    }
    return xml + "</item>\n";
}

}  // namespace

std::string renderMastodon(const Edition& edition) {
    auto xml = rssOpening(
        edition, fmt::format("xmlns:webfeeds=\"http://webfeeds.org/rss/1.0\" {}", mediaNamespace));
    xml += element("lastBuildDate", mailDate(edition.changed)) +
           "<generator>Mastodon v4.5.2</generator>\n";
    for (const auto& entry : edition.entries) xml += item(entry);
    return xml.append(rssClosing);
}

}  // namespace pressroom
