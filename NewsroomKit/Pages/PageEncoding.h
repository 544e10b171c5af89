#pragma once

#include <string>
#include <string_view>

namespace kit {

/// A page's bytes as UTF-8: `bytes` itself (or its end) when they were UTF-8 already, `storage`
/// otherwise. Valid UTF-8 beyond ASCII is UTF-8 whatever the labels say: of the Content-Type header
/// first, then of the page's <meta>.
std::string_view pageInUTF8(std::string_view bytes, std::string_view contentType,
                            std::string& storage);

}  // namespace kit
