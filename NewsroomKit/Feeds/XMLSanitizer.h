#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kit {

/// What a publisher's XML in UTF-8 carries against the rules of XML but without changing its
/// meaning is taken out: white space before the prolog, control characters and references to
/// them ("&#0;"). The XML declaration goes too, because the text is no longer in the encoding
/// that it names. Gives a part of `text` when nothing else had to go, else `storage`.
std::string_view withoutForbiddenCharacters(std::string_view text, std::string& storage);

/// The document with every "&" that begins no reference made into text, outside of CDATA
/// sections, comments, instructions and the document type. `isKnown` tells which names stand
/// for something.
std::string withStrayAmpersandsEscaped(std::string_view document,
                                       const std::function<bool(std::string_view)>& isKnown);

/// Whether a document that could not be read up to its first element was meant as a feed: a
/// feed's root stands in it, and before any part of a web page.
bool isMeantAsFeed(std::string_view document);

}  // namespace kit
