#include "PressRoom/Pictures/PNG.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include <png.h>

namespace pressroom {

std::string pngFile(const Bitmap& bitmap) {
    std::vector<png_byte> bytes;
    bytes.reserve(3 * bitmap.pixels.size());
    for (const auto& pixel : bitmap.pixels) {
        for (const double part : pixel)
            bytes.push_back(static_cast<png_byte>(std::lround(std::clamp(part, 0.0, 1.0) * 255)));
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(bitmap.width);
    image.height = static_cast<png_uint_32>(bitmap.height);
    image.format = PNG_FORMAT_RGB;
    image.flags = PNG_IMAGE_FLAG_FAST;
    std::string file(PNG_IMAGE_PNG_SIZE_MAX(image), '\0');
    png_alloc_size_t size = file.size();
    if (!png_image_write_to_memory(&image, file.data(), &size, 0, bytes.data(), 0, nullptr))
        throw std::runtime_error(std::string("A picture can't be written: ") + image.message);
    file.resize(size);
    return file;
}

}  // namespace pressroom
