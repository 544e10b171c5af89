#pragma once

#include <string>
#include <string_view>

namespace kit {

/// The HTML without its scripts, styles, frames, forms, controls and figures, each removed
/// with its content up to its closing tag, or to the end of the text when that is missing.
/// Gives `html` itself when nothing had to go, else `storage`.
///
/// What goes is exactly what (?is)<(script|style|noscript|iframe|object|form|button|select|
/// textarea|figure)[^>]*>.*?(?:</\1\s*>|$) matches, so a tag whose name only begins with one
/// of these goes too. It is done by hand because that expression takes time that grows with
/// the square of hostile text.
std::string_view withoutEmbeddedElements(std::string_view html, std::string& storage);

}  // namespace kit
