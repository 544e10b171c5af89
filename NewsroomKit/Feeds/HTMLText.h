#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kit {

/// The text of HTML, without tags and comments, character references decoded once, white space
/// collapsed to single spaces. Block elements and <br> end a line; lines are separated by "\n" and
/// never empty. "2 < 3" is text, not a tag.
std::string plainText(std::string_view html);

/// The same on a single line, for headlines and names.
std::string cleanHeadline(std::string_view html);

/// The headline of a post: its first line, at most 120 user-perceived characters, cut at a word. In
/// a text without any tag, its own line breaks count.
std::string postTitle(std::string_view html);

/// Plain text of at most `limit` user-perceived characters: without embedded elements (see
/// NonTextElements.h) and without what a publisher's software writes below the text (see
/// ExcerptEnding.h), cut as TextTruncation.h describes. Reads no more of the HTML than it needs.
/// `itemLink`, if known, identifies links to the item itself.
std::string excerpt(std::string_view html, std::size_t limit, std::string_view itemLink = {});

}  // namespace kit
