#pragma once

#include <string_view>

namespace kit {

/// Whether an author's name consists only of e-mail and web addresses: "desk@example.com",
/// "mailto:a@example.com, b@example.com", "https://example.com/jo". A handle such as
/// "@jo@social.example" counts as a name.
bool isOnlyAddresses(std::string_view author);

}  // namespace kit
