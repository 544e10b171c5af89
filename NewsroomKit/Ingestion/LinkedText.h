#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// The text of a piece of HTML with its links, for finding what it refers to. Not for display:
/// white space is one space, quotation marks and apostrophes have their typewriter forms, block
/// elements, <br> and empty lines become line breaks.
struct LinkedText {
    struct Link {
        std::size_t begin = 0;  ///< first byte of the link's words in `text`
        std::size_t end = 0;
        std::string address{};  ///< http(s) addresses only
    };

    std::string text;
    std::vector<Link> links;  ///< in order, never overlapping
};

/// Reads the pieces in order, with a space between them. Comments, scripts and styles are left out.
/// A "<" that begins no tag is text.
LinkedText linkedText(std::span<const std::string_view> pieces);

/// The host of an http(s) address as it is written, in lower case; empty when there is none.
std::string linkHost(std::string_view address);

/// The position of the ">" of the tag whose "<" is at `open`, ignoring quoted values; npos when no
/// tag begins there or it is absurdly long, so that many unfinished tags cost no more than one.
std::size_t tagEnd(std::string_view html, std::size_t open);

/// The value of an attribute inside a tag, entities decoded; empty when there is none. `tag` has no
/// angle brackets; the name is in lower case.
std::string attributeValue(std::string_view tag, std::string_view name);

}  // namespace kit
