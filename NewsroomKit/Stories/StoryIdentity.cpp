#include "NewsroomKit/Stories/StoryIdentity.h"

#include <charconv>
#include <cstdint>

namespace kit {

std::string storyID(std::string_view text) {
    constexpr std::uint64_t offsetBasis = 0xcbf29ce484222325;
    constexpr std::uint64_t prime = 0x100000001b3;
    std::uint64_t hash = offsetBasis;
    for (const char c : text) {
        hash ^= static_cast<unsigned char>(c);
        hash *= prime;
    }
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, hash, 16).ptr;
    return {digits, end};
}

}  // namespace kit
