#pragma once

#include <string_view>

namespace kit {

/// Whether an author's name is nothing but e-mail and web addresses: "desk@example.com",
/// "mailto:a@example.com, b@example.com", "https://example.com/jo". "@jo@social.example" is a
/// handle, which stands for a name.
bool isOnlyAddresses(std::string_view author);

}  // namespace kit
