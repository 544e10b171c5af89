#include <gtest/gtest.h>

#include <thread>

#include "NewsroomKit/Stories/CanonicalLink.h"

namespace kit {
namespace {

TEST(CanonicalLink, OneFormForEveryWayOfWritingAnAddress) {
    struct Case {
        const char* link;
        const char* canonical;
    };
    const Case cases[] = {
        // The whole road at once.
        {"HTTP://Www.Example.COM:80/Path/?b=2&utm_source=x&a=1#top",
         "https://www.example.com/Path?a=1&b=2"},
        // Scheme, host, port.
        {"http://example.com", "https://example.com/"},
        {"https://example.com:443/", "https://example.com/"},
        {"https://example.com:8443/a", "https://example.com:8443/a"},
        {"https://user:pw@EXAMPLE.com/a", "https://user:pw@example.com/a"},
        {"https://[2001:DB8::1]:80/a/", "https://[2001:db8::1]/a"},
        // Path.
        {"https://example.com/a//", "https://example.com/a"},
        {"https://example.com//a/b", "https://example.com/a/b"},
        {"https://example.com///", "https://example.com/"},
        {"https://example.com/A%c3%A9/x y", "https://example.com/A%c3%A9/x%20y"},
        {"https://example.com/50%", "https://example.com/50%25"},
        // Query: tracking items go in any letter case, the rest is sorted by name, then value.
        {"https://example.com/?utm_Campaign=a&UTM_x=b&fbclid=1&GCLID=2&mc_cid=3&mc_eid=4",
         "https://example.com/"},
        {"https://example.com/?", "https://example.com/"},
        {"https://example.com/?&&b=2&&a=1&", "https://example.com/?a=1&b=2"},
        {"https://example.com/?a=2&a=1&a", "https://example.com/?a&a=1&a=2"},
        {"https://example.com/?%62=2&a=1&c=%7e", "https://example.com/?a=1&%62=2&c=%7e"},
        {"https://example.com/?utm=1&xutm_a=2", "https://example.com/?utm=1&xutm_a=2"},
        {"https://example.com/?source=rss-1------2", "https://example.com/?source=rss-1------2"},
        {"https://example.com/?%75tm_source=x&q=1", "https://example.com/?q=1"},
        // Apple's two host names, and pictures of its press releases.
        {"https://apple.com/iphone/", "https://www.apple.com/iphone"},
        {"https://www.apple.com/newsroom/images/2026/10/new-thing/tile/pic.jpg.og.jpg",
         "https://www.apple.com/newsroom/2026/10/new-thing"},
        {"https://www.apple.com/newsroom/images/2026/10/new-thing/pic.jpg.og.jpg",
         "https://www.apple.com/newsroom/images/2026/10/new-thing/pic.jpg.og.jpg"},
        {"https://apple.com/newsroom/images/2026/10/new-thing/article/tile/pic.jpg?x=1",
         "https://www.apple.com/newsroom/2026/10/new-thing?x=1"},
        {"https://www.apple.com/newsroom/images/live/10/new-thing/a/b/pic.jpg",
         "https://www.apple.com/newsroom/images/live/10/new-thing/a/b/pic.jpg"},
        {"https://developer.apple.com/newsroom/images/2026/10/a/b/c/d.jpg",
         "https://developer.apple.com/newsroom/images/2026/10/a/b/c/d.jpg"},
        // What is no web address stays, trimmed.
        {"  \n", ""},
        {" tag:example.com,2026:1 \n", "tag:example.com,2026:1"},
        {"ftp://Example.com/A/", "ftp://Example.com/A/"},
        {"https:///nohost/", "https:///nohost/"},
        {"just words", "just words"},
    };
    CanonicalLinks links;
    for (const auto& c : cases) {
        EXPECT_EQ(canonicalLink(c.link), c.canonical) << c.link;
        EXPECT_EQ(links.of(c.link), c.canonical) << c.link;
        EXPECT_EQ(links.of(c.link), c.canonical) << "from memory: " << c.link;
        EXPECT_EQ(canonicalLink(c.canonical), c.canonical) << "applied twice: " << c.link;
    }
}

TEST(CanonicalLinks, ForgetsTheLeastRecentlyUsedBeyondItsLimit) {
    CanonicalLinks links(3);
    for (const char* link : {"https://a.example", "https://b.example", "https://c.example",
                             "https://a.example", "https://d.example", "https://a.example"}) {
        EXPECT_EQ(links.of(link), std::string(link) + "/");
        EXPECT_LE(links.count(), 3u);
    }
    EXPECT_EQ(links.count(), 3u);
}

TEST(CanonicalLinks, AnswersSeveralThreadsAtOnce) {
    CanonicalLinks links(50);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&links, t] {
            for (int i = 0; i < 2000; ++i) {
                const auto host = "https://h" + std::to_string((i * (t + 1)) % 90) + ".example";
                EXPECT_EQ(links.of(host + "/?utm_a=1"), host + "/");
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(links.count(), 50u);
}

}  // namespace
}  // namespace kit
