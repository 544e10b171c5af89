#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <QBuffer>
#include <QByteArray>
#include <QImage>

namespace app::test {

/// A file of that format ("PNG") and colour.
inline std::string pictureFile(int width, int height, const char* format = "PNG",
                               Qt::GlobalColor color = Qt::red) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data().toStdString();
}

/// A PNG file that claims to have that many pixels and has none.
inline std::string pngHead(std::uint32_t width, std::uint32_t height) {
    const auto number = [](std::uint32_t value) {
        std::string bytes;
        for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
        return bytes;
    };
    std::string head = "IHDR" + number(width) + number(height) + std::string("\x08\x02\0\0\0", 5);
    std::uint32_t sum = 0xffffffff;
    for (const char byte : head) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ (sum & 1 ? 0xedb88320 : 0);
    }
    return "\x89PNG\r\n\x1a\n" + number(13) + head + number(~sum);
}

/// A GIF file of 4 by 4 pixels with a red frame and a blue one.
inline std::string animation() {
    using namespace std::string_view_literals;
    constexpr auto frame = "\x21\xf9\x04\0\x0a\0\0\0\x2c\0\0\0\0\x04\0\x04\0\0\x02\x04"sv;
    constexpr auto red = "\x84\x8f\x09\x05\0"sv;  // sixteen times the first colour
    constexpr auto blue = "\x8c\x8f\x19\x05\0"sv;
    std::string file("GIF89a\x04\0\x04\0\x80\0\0\xff\0\0\0\0\xff"sv);
    file.append(frame).append(red).append(frame).append(blue);
    return file + ';';
}

}  // namespace app::test
