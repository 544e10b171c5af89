#pragma once

#include <array>
#include <string_view>

#include <libxml/xmlstring.h>

namespace kit {

/// The meaning of an element in a feed. Elements of different dialects that fill the same field
/// share a role.
enum class ElementRole {
    none,
    feed,      ///< root of RSS
    atomFeed,  ///< root of Atom
    channel,
    entry,
    title,
    link,
    atomLink,  ///< Atom's link in a feed that is not Atom
    summary,
    content,
    date,          ///< when it was published
    revisionDate,  ///< when it last changed
    guid,
    author,
    authorName,  ///< only inside an author
    publisher,
    image,  ///< a block with its own title and link
    enclosure,
    mediaGroup,
    mediaContent,
    mediaThumbnail,
    mediaDescription,
    podcastImage,
    podcastAuthor,   ///< when no other author is named
    podcastSummary,  ///< when there is no other text
    videoID,
};

/// Finds the role of an element from its name and namespace. Documents may bind any prefix to a
/// known namespace, or use the usual prefix without binding it; letter case does not count. The
/// strings must be interned by the parser, because results are cached by address.
class ElementNames {
public:
    ElementRole role(const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri);

private:
    struct Known {
        const xmlChar* localName = nullptr;
        const xmlChar* prefix = nullptr;
        const xmlChar* uri = nullptr;
        ElementRole role = ElementRole::none;
    };

    ElementRole lookUp(const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri);

    std::array<Known, 128> known_{};
    bool isAtom_ = false;
};

}  // namespace kit
