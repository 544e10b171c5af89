#include "PressRoom/World/Platforms/Fragments.h"

#include <fmt/format.h>

#include "PressRoom/World/Markup.h"

namespace pressroom {

std::string rssOpening(const Edition& edition, std::string_view namespaces) {
    const auto& source = *edition.source;
    return fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<rss version=\"2.0\" {}>\n<channel>\n{}{}{}",
        namespaces, element("title", source.title), element("link", source.home),
        element("description", source.description));
}

std::string pictureElement(const Entry& entry) {
    if (const auto url = entry.pictureURL(PicturePlace::mediaContent); !url.empty()) {
        return fmt::format(
            "<media:content url=\"{}\" medium=\"image\" type=\"image/jpeg\" "
            "width=\"1600\" height=\"900\"/>\n",
            escaped(url));
    }
    if (const auto url = entry.pictureURL(PicturePlace::mediaThumbnail); !url.empty()) {
        return fmt::format("<media:thumbnail url=\"{}\" width=\"640\" height=\"360\"/>\n",
                           escaped(url));
    }
    if (const auto url = entry.pictureURL(PicturePlace::enclosure); !url.empty()) {
        return fmt::format("<enclosure url=\"{}\" type=\"image/jpeg\" length=\"184320\"/>\n",
                           escaped(url));
    }
    return {};
}

std::string linkElement(const Entry& entry) {
    return entry.story().guidOnly.value_or(false) ? "" : element("link", entry.item->link);
}

}  // namespace pressroom
