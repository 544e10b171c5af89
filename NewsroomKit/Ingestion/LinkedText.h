#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// Text of a piece of HTML with the links that stand in it, for finding what a text refers
/// to. Not for showing: white space and characters are kept as they come, block elements
/// and <br> become line breaks.
struct LinkedText {
    struct Link {
        std::size_t begin = 0;  ///< first byte of the link's words in `text`
        std::size_t end = 0;
        std::string address{};  ///< http(s) addresses only
    };

    std::string text;
    std::vector<Link> links;  ///< in order, never overlapping
};

/// Comments, scripts and styles are left out. A "<" that begins no tag is text.
/// The pieces are read one after the other, with a space between.
LinkedText linkedText(std::span<const std::string_view> pieces);

/// Where the tag whose "<" stands at `open` ends: the place of its ">", one inside a quoted
/// value not counted. Nothing (npos) when no tag begins there or it is absurdly long, so
/// that many unfinished tags cost no more than one.
std::size_t tagEnd(std::string_view html, std::size_t open);

/// The value of an attribute inside a tag, entities decoded; empty when there is none.
/// `tag` is the tag's inside, without its angle brackets; the name is in lower case.
std::string attributeValue(std::string_view tag, std::string_view name);

}  // namespace kit
