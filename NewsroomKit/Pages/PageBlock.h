#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// A link in a page's text, its address absolute.
struct PageLink {
    std::string text;
    std::string url;

    bool operator==(const PageLink&) const = default;
};

/// A line of a page's text.
struct PageBlock {
    enum class Kind {
        heading,
        paragraph,
        item,
        term,  ///< of a list of terms, or its description
        row,   ///< of a table, the cells joined with " · "
        quote,
        code,
        caption,
        text,  ///< in no element that says what it is
    };

    Kind kind = Kind::text;
    std::optional<std::int64_t> level;  ///< 1 to 6, only of headings
    std::vector<std::string> headings;  ///< those above the block, without itself
    std::string text;
    std::vector<PageLink> links;

    bool operator==(const PageBlock&) const = default;
};

/// What a page says.
struct Page {
    std::string title;
    std::vector<PageBlock> blocks;
    std::string canonical;            ///< the address it gives for itself, empty without one
    std::string description;          ///< empty without one
    std::string language;             ///< as written, empty without one
    std::optional<Instant> modified;  ///< as the page states in its head
};

template <>
inline constexpr std::array<EnumRow<PageBlock::Kind>, 9> enumTable<PageBlock::Kind>{{
    {PageBlock::Kind::heading, "heading", "Heading"},
    {PageBlock::Kind::paragraph, "paragraph", "Paragraph"},
    {PageBlock::Kind::item, "item", "Item"},
    {PageBlock::Kind::term, "term", "Term"},
    {PageBlock::Kind::row, "row", "Row"},
    {PageBlock::Kind::quote, "quote", "Quote"},
    {PageBlock::Kind::code, "code", "Code"},
    {PageBlock::Kind::caption, "caption", "Caption"},
    {PageBlock::Kind::text, "text", "Text"},
}};

template <>
struct JSONFields<PageLink> {
    static constexpr auto fields =
        std::tuple{field("text", &PageLink::text), field("url", &PageLink::url)};
};

template <>
struct JSONFields<PageBlock> {
    static constexpr auto fields =
        std::tuple{field("kind", &PageBlock::kind), field("level", &PageBlock::level),
                   field("headings", &PageBlock::headings), field("text", &PageBlock::text),
                   field("links", &PageBlock::links)};
};

}  // namespace kit
