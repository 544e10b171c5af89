#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// The most bytes of a picture's file.
inline constexpr std::size_t kPictureByteLimit = 2'097'152;

/// The formats of pictures that may be decoded. SVG is none of them: it is a program.
enum class PictureFormat { png, jpeg, webp, gif, avif };

template <>
inline constexpr std::array<EnumRow<PictureFormat>, 5> enumTable<PictureFormat>{{
    {PictureFormat::png, "png", "PNG"},
    {PictureFormat::jpeg, "jpeg", "JPEG"},
    {PictureFormat::webp, "webp", "WebP"},
    {PictureFormat::gif, "gif", "GIF"},
    {PictureFormat::avif, "avif", "AVIF"},
}};

/// The format by the first bytes of a file. Names and types that servers give are often wrong.
std::optional<PictureFormat> pictureFormat(std::string_view bytes);

/// Whether a picture of that many pixels may be decoded and shown: no counting pixel, and not so
/// large that decoding it would exhaust the memory.
bool isPictureSize(int width, int height);

/// Where to fetch the picture that a story or an app names: always https, which most servers that
/// are named with http offer too. Nothing when there is no picture that can be shown, and for
/// counters and share buttons, which libraries of earlier versions hold.
std::optional<std::string> pictureAddress(std::string_view named);

}  // namespace kit
