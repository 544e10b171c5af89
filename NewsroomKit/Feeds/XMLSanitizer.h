#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kit {

/// Removes from UTF-8 text what violates the rules of XML without affecting its meaning: white
/// space before the prolog, control characters and references to them ("&#0;"). Removes the XML
/// declaration too, because the text is no longer in the encoding that it names. Returns a part of
/// `text` when nothing else was removed, else `storage`.
std::string_view withoutForbiddenCharacters(std::string_view text, std::string& storage);

/// Escapes every "&" that begins no reference, outside of CDATA sections, comments, instructions
/// and the document type. `isKnown` tells which names are entities.
std::string withStrayAmpersandsEscaped(std::string_view document,
                                       const std::function<bool(std::string_view)>& isKnown);

/// Whether a document that could not be read up to its first element was meant as a feed: it
/// contains a feed's root before any part of a web page.
bool isMeantAsFeed(std::string_view document);

}  // namespace kit
