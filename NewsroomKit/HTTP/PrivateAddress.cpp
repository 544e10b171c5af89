#include "NewsroomKit/HTTP/PrivateAddress.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include <boost/asio/ip/address.hpp>

namespace kit {
namespace {

using boost::asio::ip::address_v4;
using boost::asio::ip::address_v6;

struct Block {
    std::uint32_t start;
    unsigned prefixBits;
};

constexpr std::array privateBlocks{
    Block{0x00000000, 8},   // "this network"
    Block{0x0A000000, 8},   // 10.0.0.0
    Block{0x64400000, 10},  // 100.64.0.0, behind a carrier's translator
    Block{0x7F000000, 8},   // loopback
    Block{0xA9FE0000, 16},  // 169.254.0.0, link-local
    Block{0xAC100000, 12},  // 172.16.0.0
    Block{0xC0000000, 24},  // 192.0.0.0, protocol assignments
    Block{0xC0A80000, 16},  // 192.168.0.0
    Block{0xC6120000, 15},  // 198.18.0.0, test beds
    Block{0xE0000000, 3},   // multicast, reserved, broadcast
};

bool isPrivate(const address_v4& address) {
    return std::ranges::any_of(privateBlocks, [&](const Block& block) {
        return (address.to_uint() ^ block.start) >> (32 - block.prefixBits) == 0;
    });
}

/// The IPv4 address that an IPv6 address stands for: mapped, compatible, translated by a
/// NAT64 gateway (64:ff9b::/96), or 6to4 (2002::/16).
std::optional<address_v4> wrappedAddress(const address_v6::bytes_type& bytes) {
    const auto at = [&](std::size_t i) {
        return address_v4({bytes[i], bytes[i + 1], bytes[i + 2], bytes[i + 3]});
    };
    if (bytes[0] == 0x20 && bytes[1] == 0x02) return at(2);
    const bool nat64 = bytes[0] == 0 && bytes[1] == 0x64 && bytes[2] == 0xFF && bytes[3] == 0x9B;
    const auto zeroFrom = [&](std::size_t first, std::size_t last) {
        return std::all_of(bytes.begin() + static_cast<std::ptrdiff_t>(first),
                           bytes.begin() + static_cast<std::ptrdiff_t>(last),
                           [](unsigned char byte) { return byte == 0; });
    };
    if (nat64 && zeroFrom(4, 12)) return at(12);
    const bool mapped = zeroFrom(0, 10) && bytes[10] == 0xFF && bytes[11] == 0xFF;
    if (mapped || zeroFrom(0, 12)) return at(12);
    return std::nullopt;
}

bool isPrivate(const address_v6& address) {
    const auto bytes = address.to_bytes();
    if (const auto wrapped = wrappedAddress(bytes)) return isPrivate(*wrapped);
    const bool uniqueLocal = (bytes[0] & 0xFE) == 0xFC;
    const bool siteLocal = bytes[0] == 0xFE && (bytes[1] & 0xC0) == 0xC0;
    return address.is_link_local() || address.is_multicast() || uniqueLocal || siteLocal;
}

}  // namespace

bool isPrivateAddress(std::string_view ip) {
    boost::system::error_code failure;
    const auto address = boost::asio::ip::make_address(ip, failure);
    if (failure) return true;
    return address.is_v4() ? isPrivate(address.to_v4()) : isPrivate(address.to_v6());
}

}  // namespace kit
