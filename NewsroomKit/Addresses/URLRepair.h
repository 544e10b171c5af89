#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kit {

/// An address in the form that a strict parser takes: characters that may not stand where
/// they stand are escaped as UTF-8, a lone "%" becomes "%25", existing escapes stay as they
/// are in either letter case, and a host in another script takes its ASCII form. Nothing
/// when there is no "scheme://" or the host cannot be brought to ASCII.
std::optional<std::string> strictAddress(std::string_view text);

}  // namespace kit
