#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kit {

/// The text of HTML: tags and comments out, character references decoded once, white space
/// collapsed to single spaces. Block elements and <br> end a line; lines are separated by
/// "\n" and never empty. "2 < 3" is text, not a tag.
std::string plainText(std::string_view html);

/// The same on a single line, for headlines and names.
std::string cleanHeadline(std::string_view html);

/// The first line of what a post says, to stand as its headline: at most 120 user-perceived
/// characters, cut at a word. In a text without any tag its own line breaks count.
std::string postTitle(std::string_view html);

/// Plain text of at most `limit` user-perceived characters: without embedded elements (see
/// NonTextElements.h) and without what a publisher's software writes below the text (see
/// ExcerptEnding.h), cut as TextTruncation.h tells. Reads no more of the HTML than it needs.
/// `itemLink`, where it is known, tells links to the item itself from others.
std::string excerpt(std::string_view html, std::size_t limit, std::string_view itemLink = {});

}  // namespace kit
