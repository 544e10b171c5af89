#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Feeds/HTMLReader.h"

namespace kit {

/// The text without trailing lines that have no letter or digit.
std::string_view withoutBareLines(std::string_view text);

/// Removes from the end of an excerpt, repeatedly, what is not part of the item's text:
/// - lines without a letter or digit, such as a permanent link named "★";
/// - "The post … appeared first on …", and in any language the last line of a blog engine: two
///   links, the first to the item itself, the second to its site;
/// - "Read the full story at …", "Read more", "Continue reading" and the like, as text or link,
///   and in any language a closing link to the item itself.
/// When only the words of links remain, the result is empty.
///
/// `links` are those of the text. `itemLink` may be empty when it is not known.
std::string withoutExcerptEnding(std::string text, std::vector<HTMLReader::Link> links,
                                 std::string_view itemLink);

}  // namespace kit
