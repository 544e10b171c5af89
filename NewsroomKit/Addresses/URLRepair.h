#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kit {

/// The address in a form that a strict parser accepts: forbidden characters are escaped as UTF-8, a
/// lone "%" becomes "%25", existing escapes stay in either letter case, and an international host
/// is converted to ASCII. Nothing without a "scheme://" or when the host has no ASCII form.
std::optional<std::string> strictAddress(std::string_view text);

}  // namespace kit
