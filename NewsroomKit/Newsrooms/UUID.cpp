#include "NewsroomKit/Newsrooms/UUID.h"

#include <algorithm>

#include <boost/uuid/random_generator.hpp>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

constexpr std::size_t kTextLength = 36;

constexpr bool isDashPlace(std::size_t at) { return at == 8 || at == 13 || at == 18 || at == 23; }

}  // namespace

UUID UUID::random() {
    const auto made = boost::uuids::random_generator_pure()();
    UUID id;
    std::copy(made.begin(), made.end(), id.bytes_.begin());
    return id;
}

std::optional<UUID> UUID::parse(std::string_view text) {
    if (text.size() != kTextLength) return std::nullopt;
    UUID id;
    std::size_t digits = 0;
    for (std::size_t at = 0; at < kTextLength; ++at) {
        if (isDashPlace(at)) {
            if (text[at] != '-') return std::nullopt;
            continue;
        }
        const int value = hexValue(text[at]);
        if (value < 0) return std::nullopt;
        auto& byte = id.bytes_[digits++ / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | value);
    }
    return id;
}

std::string UUID::text() const {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(kTextLength);
    for (const auto byte : bytes_) {
        if (isDashPlace(out.size())) out += '-';
        out += digits[byte >> 4];
        out += digits[byte & 15];
    }
    return out;
}

UUID Codec<UUID>::decode(const json::value& value) {
    const auto text = Codec<std::string>::decode(value);
    if (const auto id = UUID::parse(text)) return *id;
    throw RecordError("", "a UUID is expected");
}

}  // namespace kit
