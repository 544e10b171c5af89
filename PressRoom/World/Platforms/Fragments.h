#pragma once

#include <string>
#include <string_view>

#include "PressRoom/World/Edition.h"

namespace pressroom {

/// The XML prolog, `<rss>` with the given namespace declarations, and the channel's own
/// title, link and description.
std::string rssOpening(const Edition& edition, std::string_view namespaces);

inline constexpr std::string_view rssClosing = "</channel>\n</rss>\n";

inline constexpr std::string_view contentNamespace =
    "xmlns:content=\"http://purl.org/rss/1.0/modules/content/\"";
inline constexpr std::string_view dublinCoreNamespace =
    "xmlns:dc=\"http://purl.org/dc/elements/1.1/\"";
inline constexpr std::string_view atomNamespace = "xmlns:atom=\"http://www.w3.org/2005/Atom\"";
inline constexpr std::string_view mediaNamespace = "xmlns:media=\"http://search.yahoo.com/mrss/\"";

/// media:content, media:thumbnail or enclosure, as the story specifies; empty when it has no
/// picture or has it in the text.
std::string pictureElement(const Entry& entry);

/// `<link>`, unless the item has only a guid.
std::string linkElement(const Entry& entry);

}  // namespace pressroom
