#pragma once

#include <string>
#include <string_view>

namespace kit {

/// The identity of a story: 64-bit FNV-1a over the text's UTF-8 bytes, in lower-case
/// hexadecimal without leading zeros. The empty text gives the offset basis.
std::string storyID(std::string_view text);

}  // namespace kit
