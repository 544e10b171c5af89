#pragma once

#include <string_view>

#include <QImage>
#include <QSize>

namespace app {

/// The place that a picture is to fill.
struct PictureShape {
    QSize size{};       ///< in the device's pixels
    double corner = 0;  ///< the radius of the corners as a share of the width
};

/// Whether the file's head is that of a picture that may be decoded here.
bool isDecodable(std::string_view bytes);

/// The picture, cut to the shape around its middle, with transparent corners; of an animation its
/// first frame. A small picture is enlarged to at most twice its size and leaves the rest of the
/// place transparent. Null when the file can't be decoded. Needs several milliseconds: not for the
/// main thread.
QImage decodePicture(std::string_view bytes, const PictureShape& shape);

}  // namespace app
