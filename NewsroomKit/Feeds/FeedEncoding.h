#pragma once

#include <string>
#include <string_view>

namespace kit {

/// A feed's bytes as UTF-8, without a byte-order mark: `bytes` itself (or its end) when they
/// were UTF-8 already, `storage` otherwise.
///
/// Labels are often wrong, so the bytes take precedence: a byte-order mark or the zero bytes of
/// UTF-16 decide at once; valid UTF-8 beyond ASCII is UTF-8 whatever a single-byte label says; a
/// label that is unknown or contradicts the bytes is ignored. Without a usable label, text is UTF-8
/// with damage replaced when most of its non-ASCII characters are sound, and Windows-1252
/// otherwise.
std::string_view feedInUTF8(std::string_view bytes, std::string& storage);

/// The same for bytes whose label was found elsewhere, in lower case; empty when there is none.
std::string_view labelledInUTF8(std::string_view bytes, const std::string& label,
                                std::string& storage);

}  // namespace kit
