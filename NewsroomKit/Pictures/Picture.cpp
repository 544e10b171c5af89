#include "NewsroomKit/Pictures/Picture.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Feeds/ImageExtractor.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr int kLeastSide = 4;
constexpr int kMostSide = 4'096;
constexpr unsigned kPlainPort = 80;

/// Formats that are never decoded, by the ends of their addresses, in lower case.
constexpr std::array<std::string_view, 4> kRefusedEndings{".svg", ".svgz", ".heic", ".ico"};

std::size_t bigEndian(std::string_view bytes) {
    std::size_t number = 0;
    for (const char byte : bytes) number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

/// The first box of the file names a brand, and others that it is compatible with.
bool isAVIF(std::string_view bytes) {
    if (bytes.size() < 12 || bytes.substr(4, 4) != "ftyp") return false;
    const auto box = bytes.substr(0, std::min<std::size_t>(bigEndian(bytes.substr(0, 4)), 256));
    for (std::size_t at = 8; at + 4 <= box.size(); at += 4) {
        const auto brand = box.substr(at, 4);
        if (brand == "avif" || brand == "avis") return true;
    }
    return false;
}

}  // namespace

std::optional<PictureFormat> pictureFormat(std::string_view bytes) {
    if (bytes.starts_with("\x89PNG\r\n\x1a\n")) return PictureFormat::png;
    if (bytes.starts_with("\xff\xd8\xff")) return PictureFormat::jpeg;
    if (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")) return PictureFormat::gif;
    if (bytes.starts_with("RIFF") && bytes.size() > 8 && bytes.substr(8).starts_with("WEBP"))
        return PictureFormat::webp;
    if (isAVIF(bytes)) return PictureFormat::avif;
    return std::nullopt;
}

bool isPictureSize(int width, int height) {
    return std::min(width, height) >= kLeastSide && std::max(width, height) <= kMostSide;
}

std::optional<std::string> pictureAddress(std::string_view named) {
    if (!isWebPicture(named)) return std::nullopt;
    auto address = WebAddress::parse(named);
    if (!address || !address->isHTTP()) return std::nullopt;
    const auto path = lowercasedASCII(address->path);
    if (std::ranges::any_of(kRefusedEndings, [&](auto end) { return path.ends_with(end); }))
        return std::nullopt;
    if (address->scheme == "http" && address->port.value_or(kPlainPort) == kPlainPort)
        address->port.reset();
    address->scheme = "https";
    address->fragment.reset();
    return address->text();
}

}  // namespace kit
