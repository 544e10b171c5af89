#include <fmt/format.h>

#include "PressRoom/World/Markup.h"
#include "PressRoom/World/Platforms/Fragments.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

/// The entry links to the discussion; the content links to the article.
std::string content(const Entry& entry) {
    const auto user = escaped("https://www.reddit.com/user/" + entry.author());
    return fmt::format(
        "{} &#32; submitted by &#32; <a href=\"{}\"> /u/{} </a> <br/> "
        "<span><a href=\"{}\">[link]</a></span> &#32; "
        "<span><a href=\"{}\">[comments]</a></span>",
        entry.item->html.empty()
            ? ""
            : "<!-- SC_OFF --><div class=\"md\">" + entry.item->html + "</div><!-- SC_ON -->",
        user, escaped(entry.author()), escaped(entry.item->link), escaped(entry.item->page));
}

std::string entryXML(const Entry& entry) {
    auto xml = fmt::format(
        "<entry><author>\n<name>/u/{0}</name>\n"
        "<uri>https://www.reddit.com/user/{0}</uri>\n</author>\n"
        "<category term=\"apple\" label=\"r/apple\"/>\n",
        escaped(entry.author()));
    xml += fmt::format("<content type=\"html\">{}</content>\n<id>t3_{}</id>\n",
                       escaped(content(entry)), entry.item->key);
    if (const auto url = entry.pictureURL(PicturePlace::mediaThumbnail); !url.empty()) {
        xml += fmt::format("<media:thumbnail url=\"{}\"/>\n", escaped(url));
    }
    xml += fmt::format("<link href=\"{}\"/>\n", escaped(entry.item->page));
    xml += element("updated", isoDate(entry.updated));
    if (entry.dated) xml += element("published", isoDate(*entry.dated));
    return xml + element("title", entry.title) + "</entry>\n";
}

}  // namespace

std::string renderReddit(const Edition& edition) {
    const auto& source = *edition.source;
    auto xml = fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<feed xmlns=\"http://www.w3.org/2005/Atom\" {}>\n"
        "<category term=\"apple\" label=\"r/apple\"/>\n{}<id>/r/apple/.rss</id>\n"
        "<link rel=\"self\" href=\"{}\" type=\"application/atom+xml\"/>\n"
        "<link rel=\"alternate\" href=\"{}\" type=\"text/html\"/>\n{}{}",
        mediaNamespace, element("updated", isoDate(edition.changed)), escaped(source.address),
        escaped(source.home), element("subtitle", source.description),
        element("title", source.title));
    for (const auto& entry : edition.entries) xml += entryXML(entry);
    return xml + "</feed>\n";
}

}  // namespace pressroom
