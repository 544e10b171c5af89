#include <algorithm>

#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

constexpr std::size_t longest = 15;

std::string author(const WorldSource& source) {
    return "<author>\n" + element("name", source.author.value_or(source.title)) +
           element("uri", "https://www.youtube.com/channel/" + source.account.value_or("")) +
           "</author>\n";
}

std::string mediaGroup(const Entry& entry) {
    const auto& key = entry.item->key;
    return fmt::format(
        "<media:group>\n{}<media:content url=\"https://www.youtube.com/v/{}?version=3\" "
        "type=\"application/x-shockwave-flash\" width=\"640\" height=\"390\"/>\n"
        "<media:thumbnail url=\"https://i2.ytimg.com/vi/{}/hqdefault.jpg\" width=\"480\" "
        "height=\"360\"/>\n"
        "{}<media:community>\n<media:starRating count=\"{}\" average=\"5.00\" min=\"1\" "
        "max=\"5\"/>\n"
        "<media:statistics views=\"{}\"/>\n</media:community>\n</media:group>\n",
        element("media:title", entry.title), key, key,
        element("media:description", entry.item->text), entry.title.size() * 17,
        entry.title.size() * 2311);
}

std::string entryXML(const Entry& entry) {
    const auto& source = entry.source();
    auto xml = fmt::format(
        "<entry>\n<id>yt:video:{0}</id>\n<yt:videoId>{0}</yt:videoId>\n"
        "<yt:channelId>{1}</yt:channelId>\n",
        entry.item->key, source.account.value_or(""));
    xml += element("title", entry.title);
    xml += fmt::format("<link rel=\"alternate\" href=\"{}\"/>\n", escaped(entry.item->link));
    xml += author(source);
    if (entry.dated) xml += element("published", isoDate(*entry.dated));
    // YouTube updates an entry right after publishing it, so the two dates always differ.
    xml += element("updated", isoDate(entry.updated + std::chrono::seconds(7)));
    return xml + mediaGroup(entry) + "</entry>\n";
}

}  // namespace

std::string renderYouTube(const Edition& edition) {
    const auto& source = *edition.source;
    const auto channel = source.account.value_or("");
    auto xml = fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<feed xmlns:yt=\"http://www.youtube.com/xml/schemas/2015\" {} "
        "xmlns=\"http://www.w3.org/2005/Atom\">\n"
        "<link rel=\"self\" href=\"{}\"/>\n<id>yt:channel:{}</id>\n"
        "<yt:channelId>{}</yt:channelId>\n{}"
        "<link rel=\"alternate\" href=\"https://www.youtube.com/channel/{}\"/>\n{}"
        "<published>2015-03-02T17:00:00+00:00</published>\n",
        mediaNamespace, escaped(source.address), channel, channel, element("title", source.title),
        channel, author(source));
    const auto shown = std::min(edition.entries.size(), longest);
    for (std::size_t i = 0; i < shown; ++i) xml += entryXML(edition.entries[i]);
    return xml + "</feed>\n";
}

}  // namespace pressroom
