#include <gtest/gtest.h>

#include "NewsroomKit/Stories/Story.h"
#include "NewsroomKit/Stories/StoryIdentity.h"

namespace kit {
namespace {

TEST(StoryID, IsFNV1aInHexadecimalWithoutLeadingZeros) {
    // Published test vectors of the hash.
    EXPECT_EQ(storyID(""), "cbf29ce484222325");
    EXPECT_EQ(storyID("a"), "af63dc4c8601ec8c");
    EXPECT_EQ(storyID("foobar"), "85944171f73967e8");
    EXPECT_EQ(storyID("\xc3\xa9"), "ac21707b7181e01");
    EXPECT_EQ(storyID("story-0"), "286367d3e1a027");
}

TEST(Story, NeedsItsArticleLinkOnlyBehindGoogleNews) {
    Story story{.link = "https://news.google.com/rss/articles/CBMi?oc=5"};
    EXPECT_TRUE(story.needsArticleLink());
    story.articleLink = "https://example.com/a";
    EXPECT_FALSE(story.needsArticleLink());
    EXPECT_FALSE(Story{.link = "https://old.news.google.com/x"}.needsArticleLink());
    EXPECT_FALSE(Story{.link = "not an address"}.needsArticleLink());
}

TEST(Story, ADestinationThatRepeatsTheSourceIsNotShown) {
    Story story{.sourceName = "Caf\u00c9 News", .destinationName = "caf\u00e9 NEWS"};
    EXPECT_FALSE(story.shownDestinationName());
    story.destinationName = "Caf\u00e9";
    EXPECT_EQ(story.shownDestinationName(), "Caf\u00e9");
}

TEST(Story, EveryFieldCountsForEqualityAndHash) {
    const Story plain{.id = "1", .title = "t"};
    Story shifted = plain;
    shifted.author = "x";
    Story other = plain;
    other.imageURL = "x";
    EXPECT_NE(shifted, other);
    EXPECT_NE(std::hash<Story>{}(shifted), std::hash<Story>{}(other));
    other = plain;
    other.credits.push_back({.name = "Outlet"});
    EXPECT_NE(other, plain);
    EXPECT_NE(std::hash<Story>{}(other), std::hash<Story>{}(plain));
}

}  // namespace
}  // namespace kit
