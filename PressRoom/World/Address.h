#pragma once

#include <string>
#include <string_view>

#include "PressRoom/Server/Message.h"

namespace pressroom {

/// The lookup form of addresses: host, path without closing slash, and query, decoded, without the
/// tracking items that readers may add or drop.
std::string lookupKey(std::string_view host, std::string_view target);
std::string lookupKey(const Request& request);
std::string lookupKey(std::string_view httpsAddress);

}  // namespace pressroom
