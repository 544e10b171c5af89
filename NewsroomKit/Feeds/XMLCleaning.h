#pragma once

#include <string>
#include <string_view>

namespace newsroom {

/// What a publisher's XML in UTF-8 carries against the rules of XML but without changing its
/// meaning is taken out: white space before the prolog, control characters and references to
/// them ("&#0;"). The XML declaration goes too, because the text is no longer in the encoding
/// that it names. Gives a part of `text` when nothing else had to go, else `storage`.
std::string_view withoutForbiddenCharacters(std::string_view text, std::string& storage);

}  // namespace newsroom
