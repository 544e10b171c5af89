#pragma once

#include <string_view>

namespace kit {

/// True for numeric IPv4 and IPv6 addresses that are only valid on this machine or its own network:
/// loopback, link-local, private, carrier-grade, unspecified, broadcast, also when wrapped into
/// IPv6. Text that is not a numeric address counts as private.
bool isPrivateAddress(std::string_view ip);

}  // namespace kit
