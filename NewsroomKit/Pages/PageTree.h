#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/PageTag.h"

namespace kit {

/// The attributes that the reading of pages looks at; all others are dropped while parsing.
enum class PageAttribute : std::uint8_t {
    none,
    id,
    classes,
    role,
    hidden,
    style,
    ariaHidden,
    ariaLabel,
    href,
    itemprop,
    itemtype,
    property,
    name,
    content,
    rel,
    language,
    datetime,
};

/// A page's elements and texts in the order of the document. A node's descendants follow it up to
/// `end`, so that a walk over a subtree is a loop over indexes, and leaving a subtree out is a
/// jump.
struct PageTree {
    using Index = std::uint32_t;

    struct Attribute {
        PageAttribute name;
        std::string_view value;
    };

    struct Node {
        PageTag tag = PageTag::other;
        Index parent = 0;
        Index end = 0;  ///< the index after the last descendant
        std::uint32_t textBegin = 0;
        std::uint32_t textEnd = 0;
        std::uint32_t firstAttribute = 0;
        std::uint32_t attributeCount = 0;
    };

    std::vector<Node> nodes;  ///< the first is the root, an element that the document does not have

    std::string_view text(const Node& node) const {
        return std::string_view(characters).substr(node.textBegin, node.textEnd - node.textBegin);
    }
    /// Empty when the element does not have the attribute.
    std::string_view attribute(const Node& node, PageAttribute name) const;
    bool has(const Node& node, PageAttribute name) const;

    /// All text inside the node, as it stands.
    std::string textInside(Index node) const;

    struct StoredAttribute {
        PageAttribute name;
        std::uint32_t begin;
        std::uint32_t end;
    };
    std::vector<StoredAttribute> attributes;
    std::string characters;  ///< texts and values, in the order of the document
};

/// Parses a page of at most 8 MB in UTF-8, whatever its HTML is like. Elements nested deeper than
/// 256 are joined to their ancestor at that depth. Reading stops early at a page whose tags would
/// take far longer to match than those of any real one.
PageTree parsePage(std::string_view utf8);

}  // namespace kit
