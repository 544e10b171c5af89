#pragma once

#include <string>
#include <string_view>

namespace kit {

/// The HTML without its scripts, styles, frames, forms, controls and figures, each removed with its
/// content up to its closing tag, or to the end of the text when that is missing. Returns `html`
/// itself when nothing was removed, else `storage`.
///
/// Removes exactly what (?is)<(script|style|noscript|iframe|object|form|button|select|
/// textarea|figure)[^>]*>.*?(?:</\1\s*>|$) matches, so also a tag whose name only begins with one
/// of these. The expression itself would take quadratic time on hostile text.
std::string_view withoutEmbeddedElements(std::string_view html, std::string& storage);

}  // namespace kit
