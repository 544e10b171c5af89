#include "NewsroomKit/Feeds/ElementNames.h"

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

struct NameRow {
    std::string_view name;
    ElementRole role;
};

constexpr std::array names{
    NameRow{"rss", ElementRole::feed},
    NameRow{"rdf:rdf", ElementRole::feed},
    NameRow{"feed", ElementRole::atomFeed},
    NameRow{"channel", ElementRole::channel},
    NameRow{"item", ElementRole::entry},
    NameRow{"entry", ElementRole::entry},
    NameRow{"title", ElementRole::title},
    NameRow{"link", ElementRole::link},
    NameRow{"atom:link", ElementRole::atomLink},
    NameRow{"description", ElementRole::summary},
    NameRow{"summary", ElementRole::summary},
    NameRow{"content:encoded", ElementRole::content},
    NameRow{"content", ElementRole::content},
    NameRow{"pubdate", ElementRole::date},
    NameRow{"published", ElementRole::date},
    NameRow{"updated", ElementRole::revisionDate},
    NameRow{"dc:date", ElementRole::revisionDate},
    NameRow{"atom:updated", ElementRole::revisionDate},
    NameRow{"atom:published", ElementRole::revisionDate},
    NameRow{"guid", ElementRole::guid},
    NameRow{"id", ElementRole::guid},
    NameRow{"author", ElementRole::author},
    NameRow{"dc:creator", ElementRole::author},
    NameRow{"name", ElementRole::authorName},
    NameRow{"source", ElementRole::publisher},
    NameRow{"image", ElementRole::image},
    NameRow{"enclosure", ElementRole::enclosure},
    NameRow{"media:group", ElementRole::mediaGroup},
    NameRow{"media:content", ElementRole::mediaContent},
    NameRow{"media:thumbnail", ElementRole::mediaThumbnail},
    NameRow{"media:description", ElementRole::mediaDescription},
    NameRow{"itunes:image", ElementRole::podcastImage},
    NameRow{"itunes:author", ElementRole::podcastAuthor},
    NameRow{"itunes:summary", ElementRole::podcastSummary},
    NameRow{"yt:videoid", ElementRole::videoID},
};

struct NamespaceRow {
    std::string_view uri;  ///< lower case, without scheme and closing "/"
    std::string_view prefix;
};

constexpr std::string_view atomPrefix = "atom";

constexpr std::array namespaces{
    NamespaceRow{"www.w3.org/2005/atom", atomPrefix},
    NamespaceRow{"purl.org/atom/ns#", atomPrefix},
    NamespaceRow{"www.w3.org/1999/02/22-rdf-syntax-ns#", "rdf"},
    NamespaceRow{"www.w3.org/1999/xhtml", "xhtml"},
    NamespaceRow{"purl.org/dc/elements/1.1", "dc"},
    NamespaceRow{"purl.org/dc/elements/1.0", "dc"},
    NamespaceRow{"purl.org/rss/1.0/modules/content", "content"},
    NamespaceRow{"search.yahoo.com/mrss", "media"},
    NamespaceRow{"www.itunes.com/dtds/podcast-1.0.dtd", "itunes"},
    NamespaceRow{"www.youtube.com/xml/schemas/2015", "yt"},
    NamespaceRow{"purl.org/rss/1.0", ""},
    NamespaceRow{"my.netscape.com/rdf/simple/0.9", ""},
    NamespaceRow{"channel.netscape.com/rdf/simple/0.9", ""},
    NamespaceRow{"backend.userland.com/rss2", ""},
};

/// Reads only the beginning of a long name, which then matches no known one: lookups are so
/// frequent that their cost must not depend on the length.
std::string_view view(const xmlChar* text) {
    constexpr std::size_t longerThanAnyKnown = 64;
    if (text == nullptr) return {};
    const auto* const characters = reinterpret_cast<const char*>(text);
    return {characters, strnlen(characters, longerThanAnyKnown)};
}

/// Publishers write namespaces with either scheme, in any letter case, and without the final "/".
std::optional<std::string_view> usualPrefix(std::string_view uri) {
    std::string plain = lowercasedASCII(uri);
    if (const auto scheme = plain.find("://"); scheme != std::string::npos) {
        plain.erase(0, scheme + 3);
    }
    if (plain.ends_with('/')) plain.pop_back();
    for (const auto& row : namespaces) {
        if (row.uri == plain) return row.prefix;
    }
    return std::nullopt;
}

std::optional<ElementRole> roleOfName(std::string_view prefix, std::string_view localName) {
    std::string name(prefix);
    if (!prefix.empty()) name += ':';
    name += localName;
    for (const auto& row : names) {
        if (row.name == name) return row.role;
    }
    return std::nullopt;
}

}  // namespace

ElementRole ElementNames::role(const xmlChar* localName, const xmlChar* prefix,
                               const xmlChar* uri) {
    const auto mixed =
        reinterpret_cast<std::uintptr_t>(localName) * 31 + reinterpret_cast<std::uintptr_t>(uri);
    auto& known = known_[(mixed >> 3) % known_.size()];
    if (known.localName != localName || known.prefix != prefix || known.uri != uri) {
        known = {localName, prefix, uri, lookUp(localName, prefix, uri)};
    }
    return known.role;
}

ElementRole ElementNames::lookUp(const xmlChar* localName, const xmlChar* prefix,
                                 const xmlChar* uri) {
    const auto local = lowercasedASCII(view(localName));
    auto written = lowercasedASCII(view(prefix));
    const auto usual = usualPrefix(view(uri));

    // 1. In an Atom document Atom's own elements count under any prefix; elsewhere "atom:link" must
    // not be mistaken for the channel's or item's link.
    if (usual == atomPrefix && (written.empty() || isAtom_ || local == "feed")) {
        const auto role = roleOfName("", local).value_or(ElementRole::none);
        if (role == ElementRole::atomFeed) isAtom_ = true;
        return role;
    }

    // 2. The namespace's usual prefix.
    if (usual) {
        if (const auto role = roleOfName(*usual, local)) return *role;
        // The root of plain RSS often declares a default namespace by mistake, so only the prefix
        // distinguishes its elements. XHTML is never a mistake.
        if (!written.empty() || *usual == "xhtml") return ElementRole::none;
    }

    // 3. The name as written.
    const auto role = roleOfName(written, local).value_or(ElementRole::none);
    if (role == ElementRole::atomFeed) isAtom_ = true;
    return role;
}

}  // namespace kit
