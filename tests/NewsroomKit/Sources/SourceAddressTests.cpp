#include <gtest/gtest.h>

#include "NewsroomKit/Sources/SourceAddress.h"

namespace kit {
namespace {

TEST(SourceAddress, WhatAPersonTypesLeadsToItsFeed) {
    struct Case {
        const char* typed;
        const char* candidate;
    };
    const Case cases[] = {
        // Fediverse handles: the server is lower-cased, the user is not.
        {"@Mika_B@Mastodon.Example", "https://mastodon.example/@Mika_B.rss"},
        {"Mika_B@Mastodon.Example", "https://mastodon.example/@Mika_B.rss"},
        {"  @mika@social.example.org\n", "https://social.example.org/@mika.rss"},
        // Bluesky profiles and handles typed as addresses.
        {"https://bsky.app/profile/Ann.Example/post/3k",
         "https://bsky.app/profile/ann.example/rss"},
        {"bsky.app/profile/ann.bsky.social", "https://bsky.app/profile/ann.bsky.social/rss"},
        {"Ann.bsky.social", "https://bsky.app/profile/ann.bsky.social/rss"},
        {"@ann.bsky.social", "https://bsky.app/profile/ann.bsky.social/rss"},
        {"https://bsky.app/about", "https://bsky.app/about"},
        // YouTube: only channel addresses have a feed of a known form.
        {"https://www.youtube.com/channel/UCabc/videos",
         "https://www.youtube.com/feeds/videos.xml?channel_id=UCabc"},
        {"m.youtube.com/channel/UCabc",
         "https://www.youtube.com/feeds/videos.xml?channel_id=UCabc"},
        {"https://www.youtube.com/@apple", "https://www.youtube.com/@apple"},
        {"https://youtu.be/@apple", "https://youtu.be/@apple"},
        {"https://www.youtube.com/watch?v=1", "https://www.youtube.com/watch?v=1"},
        // Reddit, Medium, Mastodon profiles.
        {"old.reddit.com/r/apple/new", "https://www.reddit.com/r/apple/.rss"},
        {"https://www.reddit.com/user/x", "https://www.reddit.com/user/x"},
        {"medium.com/@writer", "https://medium.com/feed/@writer"},
        {"https://Mastodon.Example/@Mika", "https://mastodon.example/@Mika.rss"},
        {"https://mastodon.example/@mika.rss", "https://mastodon.example/@mika.rss"},
        {"https://mastodon.example/@", "https://mastodon.example/@"},
        {"https://mastodon.example/@mika/123", "https://mastodon.example/@mika/123"},
        // Everything else is tried as it stands.
        {"example.com", "https://example.com"},
        {"http://example.com/feed", "http://example.com/feed"},
        {"Example.com/my feed.xml?a=1&b=%7e#x", "https://Example.com/my%20feed.xml?a=1&b=%7e#x"},
        {"notreddit.com/r/apple", "https://notreddit.com/r/apple"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SourceAddress::candidates(c.typed), std::vector<std::string>{c.candidate})
            << c.typed;
    }
}

TEST(SourceAddress, UnusableTextGivesNoCandidates) {
    for (const char* typed : {"", "   \n", "two words", "https://", "https://exa mple.com", "mika@",
                              "example.com:port"}) {
        EXPECT_TRUE(SourceAddress::candidates(typed).empty()) << typed;
    }
}

}  // namespace
}  // namespace kit
