#include <gtest/gtest.h>

#include <QImageReader>

#include "Tarnwick_Brell/Pictures/PictureDecoder.h"
#include "tests/Tarnwick_Brell/Pictures/TestPictures.h"

namespace app {
namespace {

using test::pictureFile;

constexpr QSize kPlace(40, 20);

TEST(PictureDecoder, APictureFillsItsPlaceAndHasRoundCorners) {
    for (const char* format : {"PNG", "JPEG", "WEBP"}) {
        const auto file = pictureFile(300, 200, format);
        if (file.empty()) continue;  // Qt lacks the plugin
        const auto image = decodePicture(file, {kPlace, 0.1});
        ASSERT_EQ(image.size(), kPlace) << format;
        EXPECT_GT(image.pixelColor(20, 10).red(), 250) << format;
        EXPECT_GT(image.pixelColor(0, 10).alpha(), 250) << format;
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << format;
    }
}

TEST(PictureDecoder, ASmallPictureIsEnlargedToTwiceItsSizeAtMost) {
    const auto image = decodePicture(pictureFile(6, 5), {kPlace, 0});
    EXPECT_EQ(image.pixelColor(20, 10).alpha(), 255);
    EXPECT_EQ(image.pixelColor(20 - 8, 10).alpha(), 0);
    EXPECT_EQ(image.pixelColor(20, 10 - 7).alpha(), 0);
}

TEST(PictureDecoder, OfAnAnimationTheFirstFrameIsShown) {
    const auto image = decodePicture(test::animation(), {QSize(4, 4), 0});
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::red));
}

TEST(PictureDecoder, WhatIsNoPictureOrTooLargeIsNotDecoded) {
    const auto good = pictureFile(300, 200);
    const std::pair<const char*, std::string> cases[]{
        {"20,000 by 20,000", test::pngHead(20'000, 20'000)},
        {"one side too long", pictureFile(4'097, 4)},
        {"a counting pixel", pictureFile(1, 1)},
        {"a bitmap, which Qt could read", pictureFile(30, 20, "BMP")},
        {"SVG", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"30\" height=\"20\"/>"},
        {"a page", "<!doctype html><title>Not here</title>"},
        {"the beginning of a head", good.substr(0, 20)},
        {"nothing", ""},
    };
    for (const auto& [name, bytes] : cases) {
        EXPECT_FALSE(isDecodable(bytes)) << name;
        EXPECT_TRUE(decodePicture(bytes, {kPlace, 0}).isNull()) << name;
    }
    EXPECT_TRUE(isDecodable(pictureFile(4'096, 4)));
    EXPECT_TRUE(decodePicture(good, {QSize(0, 20), 0}).isNull());
}

TEST(PictureDecoder, ATruncatedFileIsNoPictureOrTheUpperPartOfOne) {
    EXPECT_TRUE(decodePicture(test::pngHead(300, 200), {kPlace, 0}).isNull());
    const auto photo = pictureFile(300, 200, "JPEG");
    const auto image =
        decodePicture(std::string_view(photo).substr(0, photo.size() / 2), {kPlace, 0});
    EXPECT_TRUE(image.isNull() || image.size() == kPlace);
}

}  // namespace
}  // namespace app
