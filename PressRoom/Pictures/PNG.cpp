#include "PressRoom/Pictures/PNG.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string_view>

#include <zlib.h>

namespace pressroom {
namespace {

std::string bigEndian(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xff);
    return bytes;
}

std::string chunk(std::string_view type, std::string_view data) {
    const auto body = std::string(type).append(data);
    const auto sum =
        crc32(0, reinterpret_cast<const Bytef*>(body.data()), static_cast<uInt>(body.size()));
    return bigEndian(static_cast<std::uint32_t>(data.size())) + body +
           bigEndian(static_cast<std::uint32_t>(sum));
}

std::string deflated(std::string_view bytes) {
    auto size = compressBound(static_cast<uLong>(bytes.size()));
    std::string result(size, '\0');
    if (compress2(reinterpret_cast<Bytef*>(result.data()), &size,
                  reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size()),
                  Z_BEST_SPEED) != Z_OK) {
        throw std::runtime_error("zlib could not compress a picture");
    }
    result.resize(size);
    return result;
}

}  // namespace

std::string pngFile(const Bitmap& bitmap) {
    std::string rows;
    for (std::size_t i = 0; i < bitmap.pixels.size(); ++i) {
        // Each row begins with its filter; none is used.
        if (i % static_cast<std::size_t>(bitmap.width) == 0) rows += '\0';
        for (const double part : bitmap.pixels[i])
            rows += static_cast<char>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
    }
    const auto head = bigEndian(static_cast<std::uint32_t>(bitmap.width)) +
                      bigEndian(static_cast<std::uint32_t>(bitmap.height)) +
                      std::string("\x08\x02\0\0\0", 5);  // eight bits of three colours
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", head) + chunk("IDAT", deflated(rows)) +
           chunk("IEND", "");
}

}  // namespace pressroom
