#include <gtest/gtest.h>

#include "NewsroomKit/Stories/PublisherNames.h"

namespace kit {
namespace {

TEST(PublisherName, NamesTheOutletALinkLeavesFor) {
    struct Case {
        const char* link;
        const char* feed;
        std::optional<std::string> name;
    };
    const Case cases[] = {
        {"https://www.example.com/a", "https://example.com/feed", std::nullopt},
        {"https://blog.example.com/a", "https://www.example.com/feed", std::nullopt},
        {"https://twit.tv/shows/x", "https://feeds.twit.tv/x.xml", "twit.tv"},
        {"https://www.nytimes.com/a", "https://example.com/feed", "The New York Times"},
        {"https://on.ft.com/a", "https://example.com/feed", "Financial Times"},
        {"https://netflix.com/a", "https://example.com/feed", "netflix.com"},
        {"https://x.com/a", "https://example.com/feed", "X"},
        {"https://www.Small-Blog.example/a", "https://example.com/feed", "small-blog.example"},
        {"https://machinelearning.apple.com/r", "https://example.com/feed", "Apple"},
        {"https://example.com/a", "not an address", "example.com"},
        {"at://did:plc:x/post", "https://bsky.app/profile/a/rss", std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(publisherName(c.link, c.feed), c.name) << c.link;
}

}  // namespace
}  // namespace kit
