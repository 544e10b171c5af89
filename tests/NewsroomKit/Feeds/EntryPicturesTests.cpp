#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "NewsroomKit/Feeds/FeedParser.h"
#include "NewsroomKit/Feeds/ImageExtractor.h"

namespace kit {
namespace {

struct PictureCase {
    std::string_view html;
    std::optional<std::string> address;
};

class FirstPictureOfText : public testing::TestWithParam<PictureCase> {};

TEST_P(FirstPictureOfText, IsNoCounterAndNoButton) {
    AddressBase base;
    EXPECT_EQ(firstPicture(GetParam().html, base), GetParam().address) << GetParam().html;
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, FirstPictureOfText,
    testing::Values(
        PictureCase{"<img src='https://a.example/1' width='1'>", std::nullopt},
        PictureCase{"<img height=\"3px\" src=\"https://a.example/1\">", std::nullopt},
        PictureCase{"<img width=0 src='https://a.example/1'>", std::nullopt},
        PictureCase{"<img style='border:0;width: 1px' src='https://a.example/1'/>", std::nullopt},
        PictureCase{
            "<img src='https://a.example/1' width='1'><img src='https://a.example/2' width=4>",
            "https://a.example/2"},
        PictureCase{"<img src='https://a.example/1' width='100%'>", "https://a.example/1"},
        PictureCase{"<img src='https://a.example/1' data-width='1' style='max-width:1px'>",
                    "https://a.example/1"},
        PictureCase{"<img alt='width=1' src='https://a.example/1?width=1'>",
                    "https://a.example/1?width=1"},
        PictureCase{"<img src='https://a.example/1' width='' height=\"auto\">",
                    "https://a.example/1"}));

INSTANTIATE_TEST_SUITE_P(
    Addresses, FirstPictureOfText,
    testing::Values(
        PictureCase{"<img src='http://feeds.feedburner.com/~ff/Wire?d=yIl2A'>", std::nullopt},
        PictureCase{"<img src='https://feedpress.me/1.gif'>", std::nullopt},
        PictureCase{"<img src='http://da.feedsportal.com/r/1/a2.img'>", std::nullopt},
        PictureCase{"<img src='http://feeds.wordpress.com/1.0/comments/a.wordpress.com/1/'>",
                    std::nullopt},
        PictureCase{"<img src='http://STATS.wordpress.com/b.gif'>", std::nullopt},
        PictureCase{"<img src='http://stats.wordpress.com/b.gif?host=a.example'>", std::nullopt},
        PictureCase{"<img src='https://eu.stats.a.example/b.gif'>", std::nullopt},
        PictureCase{"<img src='https://a.example/plugins/flattr/Flattr-badge.png'>", std::nullopt},
        PictureCase{"<img src='https://a.example/pml.png'>", std::nullopt},
        PictureCase{"<img src='https://a.example/wp-includes/images/smilies/wink.gif'>",
                    std::nullopt},
        PictureCase{"<a class='s' href='http://www.facebook.com/sharer.php?u=x'>\n<img "
                    "src='https://a.example/f.png'>"
                    "</a>",
                    std::nullopt},
        PictureCase{"<a href='https://a.example/'><img src='https://a.example/f.png'></a>",
                    "https://a.example/f.png"},
        PictureCase{"<img src='https://a.example/season-stats.png'>",
                    "https://a.example/season-stats.png"},
        PictureCase{"<img src='\n https://a.example/1.jpg '>", "https://a.example/1.jpg"}));

TEST(EntryPictures, BesideTheTextAreNoCountersEither) {
    const auto parsed = parseFeed(R"(<rss><channel>
        <item><title>1</title>
          <media:content url="https://a.example/count.gif" medium="image" width="1" height="1"/>
          <media:thumbnail url=" https://a.example/small.jpg " width="75"/></item>
        <item><title>2</title>
          <media:content url="https://stats.a.example/b.gif" medium="image"/>
          <enclosure url="http://feeds.feedburner.com/~r/1.gif" type="image/gif"/></item>
        </channel></rss>)");
    ASSERT_TRUE(parsed.has_value());
    ASSERT_EQ(parsed.value().entries.size(), 2U);
    EXPECT_EQ(parsed.value().entries[0].imageURL, "https://a.example/small.jpg");
    EXPECT_EQ(parsed.value().entries[1].imageURL, std::nullopt);
}

}  // namespace
}  // namespace kit
