#include "NewsroomKit/Links/RedirectLink.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

constexpr std::size_t kLongestIdentifier = 4096;
constexpr std::size_t kLongestAddress = 4096;

// Hosts of the redirect host's owner that stand before articles or beside them.
constexpr auto kGateHosts = std::to_array<std::string_view>(
    {"google.com", "www.google.com", "news.google.com", "consent.google.com", "accounts.google.com",
     "policies.google.com", "support.google.com", "play.google.com"});

int base64Value(char c) {
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= 'a' && c <= 'z') return c - 'a' + 26;
    if (isASCIIDigit(c)) return c - '0' + 52;
    if (c == '-' || c == '+') return 62;
    return c == '_' || c == '/' ? 63 : -1;
}

/// Bytes of URL-safe base64, up to the first character that is none.
std::string decodedBase64(std::string_view text) {
    std::string bytes;
    unsigned bits = 0;
    int count = 0;
    for (const char c : text) {
        const int value = base64Value(c);
        if (value < 0) break;
        bits = (bits << 6 | static_cast<unsigned>(value)) & 0xFFFFFF;
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>(bits >> count & 0xFF);
    }
    return bytes;
}

bool isAddressByte(char c) { return c > ' ' && c < '\x7F' && c != '"' && c != '<' && c != '>'; }

/// The length that the bytes before `at` give to what begins there, as one or two bytes of seven
/// bits each.
std::size_t lengthBefore(std::string_view bytes, std::size_t at) {
    if (at == 0) return 0;
    const auto last = static_cast<unsigned char>(bytes[at - 1]);
    const auto before = at > 1 ? static_cast<unsigned char>(bytes[at - 2]) : 0;
    return (before & 0x80) != 0 ? std::size_t{last} << 7 | (before & 0x7F) : last;
}

}  // namespace

std::optional<std::string> redirectIdentifier(std::string_view link) {
    const auto address = WebAddress::parse(link);
    if (!address || address->host != hosts::kGoogleNews) return std::nullopt;
    const auto pieces = address->pathPieces();
    for (std::size_t at = 0; at + 1 < pieces.size(); ++at) {
        if (pieces[at] != "articles" && pieces[at] != "read") continue;
        const auto& identifier = pieces[at + 1];
        const bool plain = std::all_of(identifier.begin(), identifier.end(), [](char c) {
            return isASCIIAlphanumeric(c) || c == '-' || c == '_';
        });
        if (plain && identifier.size() <= kLongestIdentifier) return identifier;
    }
    return std::nullopt;
}

std::optional<std::string> addressInIdentifier(std::string_view identifier) {
    if (identifier.size() > kLongestIdentifier) return std::nullopt;
    const std::string bytes = decodedBase64(identifier);
    for (const std::string_view scheme : {"https://", "http://"}) {
        const auto begin = bytes.find(scheme);
        if (begin == std::string::npos) continue;
        auto end = begin;
        while (end < bytes.size() && isAddressByte(bytes[end])) ++end;
        // What follows may be readable as well, so the length before the address is better.
        const auto length = lengthBefore(bytes, begin);
        if (length > scheme.size() && length < end - begin) end = begin + length;
        return bytes.substr(begin, end - begin);
    }
    return std::nullopt;
}

std::optional<std::string> articleLinkOf(std::string_view text) {
    if (text.size() > kLongestAddress || !isOpenable(text)) return std::nullopt;
    const auto address = WebAddress::parse(text);
    if (!address || !address->isHTTP() || address->userInfo) return std::nullopt;
    const auto& host = address->host;
    const bool gate = std::find(kGateHosts.begin(), kGateHosts.end(), host) != kGateHosts.end();
    const auto point = host.rfind('.');
    // A name ends in letters, an address of the network in digits or a bracket.
    const bool named =
        point != std::string::npos && point + 1 < host.size() && isASCIILetter(host[point + 1]);
    const bool front = address->pathPieces().empty() && !address->query;
    if (gate || !named || front) return std::nullopt;
    return canonicalLink(text);
}

}  // namespace kit
