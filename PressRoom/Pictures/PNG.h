#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace pressroom {

/// Red, green and blue from 0 to 1.
using Colour = std::array<double, 3>;

/// Pixels in rows from the top.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::vector<Colour> pixels = {};
};

/// The bytes of a PNG file.
std::string pngFile(const Bitmap& bitmap);

}  // namespace pressroom
