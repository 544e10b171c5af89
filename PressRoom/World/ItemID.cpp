#include "PressRoom/World/ItemID.h"

#include <cstdint>

namespace pressroom {
namespace {

constexpr std::string_view base64Letters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

std::uint64_t hash(std::string_view text) {
    std::uint64_t value = 0xcbf29ce484222325;
    for (const char c : text) {
        value ^= static_cast<unsigned char>(c);
        value *= 0x100000001b3;
    }
    // The low bits of short, similar texts differ little without a final mix.
    value ^= value >> 29;
    value *= 0xbf58476d1ce4e5b9;
    return value ^ (value >> 32);
}

/// `length` letters of `alphabet`; more than 64 bits' worth repeat the hash.
std::string letters(std::string_view seed, std::string_view alphabet, std::size_t length) {
    std::string result;
    std::uint64_t value = 0;
    while (result.size() < length) {
        if (result.size() % 10 == 0) value = hash(std::string(seed) + result);
        result += alphabet[value % alphabet.size()];
        value /= alphabet.size();
    }
    return result;
}

}  // namespace

std::string itemKey(Platform platform, std::string_view seed) {
    constexpr std::string_view digits = "0123456789";
    constexpr std::string_view base36 = "0123456789abcdefghijklmnopqrstuvwxyz";
    switch (platform) {
        case Platform::youTube: return letters(seed, base64Letters, 11);
        case Platform::medium: return letters(seed, base36.substr(0, 16), 12);
        case Platform::reddit: return "1" + letters(seed, base36, 6);
        case Platform::bluesky: return "3m" + letters(seed, "234567abcdefghijklmnopqrstuvwxyz", 11);
        case Platform::mastodon: return "115" + letters(seed, digits, 15);
        case Platform::appleBulletin: return letters(seed, base36.substr(10), 3);
        case Platform::wordPress:
        case Platform::rss:
        case Platform::rdf:
        case Platform::atom:
        case Platform::linkedList:
        case Platform::appleNewsroom:
        case Platform::googleNews:
        case Platform::podcast: return "4" + letters(seed, digits, 6);
    }
    return {};
}

std::string addressBase64(std::string_view bytes) {
    std::string result;
    std::uint32_t buffer = 0;
    int bits = 0;
    for (const char c : bytes) {
        buffer = (buffer << 8) | static_cast<unsigned char>(c);
        for (bits += 8; bits >= 6; bits -= 6) result += base64Letters[(buffer >> (bits - 6)) & 63];
    }
    if (bits > 0) result += base64Letters[(buffer << (6 - bits)) & 63];
    return result;
}

}  // namespace pressroom
