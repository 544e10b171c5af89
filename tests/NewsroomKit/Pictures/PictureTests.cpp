#include <gtest/gtest.h>

#include "NewsroomKit/Pictures/Picture.h"

namespace kit {
namespace {

using namespace std::string_view_literals;

TEST(Picture, AFormatIsKnownByTheFirstBytes) {
    using enum PictureFormat;
    const std::pair<std::string_view, std::optional<PictureFormat>> cases[]{
        {"\x89PNG\r\n\x1a\n...", png},
        {"\xff\xd8\xff\xe0\0\x10JFIF"sv, jpeg},
        {"GIF89a", gif},
        {"RIFF\x10\0\0\0WEBPVP8 "sv, webp},
        {"RIFF\x10\0\0\0WAVEfmt "sv, std::nullopt},
        {"RIFF", std::nullopt},
        {"\0\0\0\x1c"
         "ftypmif1\0\0\0\0mif1avifmiaf"sv,
         avif},
        {"\0\0\0\x10"
         "ftypheic\0\0\0\0avif"sv,
         std::nullopt},  // "avif" is behind the box
        {"\0\0\0\xff"
         "ftypheic"sv,
         std::nullopt},
        {"<svg xmlns='http://www.w3.org/2000/svg'/>", std::nullopt},
        {"<!doctype html>", std::nullopt},
        {"BM", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [bytes, format] : cases) EXPECT_EQ(pictureFormat(bytes), format) << bytes;
}

TEST(Picture, ItsSidesHaveALeastAndAMost) {
    EXPECT_TRUE(isPictureSize(4, 4'096));
    EXPECT_FALSE(isPictureSize(600, 3));
    EXPECT_FALSE(isPictureSize(4'097, 10));
    EXPECT_FALSE(isPictureSize(20'000, 20'000));
}

TEST(Picture, IsFetchedOverHTTPSOrNotAtAll) {
    const std::pair<std::string_view, std::optional<std::string>> cases[]{
        {"https://a.example/b.jpg?w=640#top", "https://a.example/b.jpg?w=640"},
        {"http://a.example/b", "https://a.example/b"},
        {"http://a.example:80/b", "https://a.example/b"},
        {"https://a.example:8443/b", "https://a.example:8443/b"},
        {"https://a.example/logo.SVG?v=2", std::nullopt},
        {"https://a.example/.svg/b.png", "https://a.example/.svg/b.png"},
        {"https://feeds.feedburner.com/~r/a/4", std::nullopt},
        {"https://stats.a.example/count.gif", std::nullopt},
        {"httpx://a.example/b.png", std::nullopt},
        {"data:image/png;base64,iVBO", std::nullopt},
        {"file:///etc/passwd", std::nullopt},
        {"https://", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [named, address] : cases) EXPECT_EQ(pictureAddress(named), address) << named;
}

}  // namespace
}  // namespace kit
