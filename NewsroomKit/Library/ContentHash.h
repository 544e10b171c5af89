#pragma once

#include <string>
#include <string_view>

namespace kit {

/// The SHA-256 of the bytes in lower-case hexadecimal.
std::string sha256Hex(std::string_view bytes);

}  // namespace kit
