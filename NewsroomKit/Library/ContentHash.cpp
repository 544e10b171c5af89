#include "NewsroomKit/Library/ContentHash.h"

#include <openssl/evp.h>

#include <array>
#include <new>

namespace kit {

std::string sha256Hex(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::array<unsigned char, EVP_MAX_MD_SIZE> hash{};
    unsigned int size = 0;
    // It fails only when there is no memory left.
    if (EVP_Digest(bytes.data(), bytes.size(), hash.data(), &size, EVP_sha256(), nullptr) != 1)
        throw std::bad_alloc();
    std::string text;
    text.reserve(std::size_t{2} * size);
    for (unsigned int i = 0; i < size; ++i) {
        text += digits[hash[i] / 16];
        text += digits[hash[i] % 16];
    }
    return text;
}

}  // namespace kit
