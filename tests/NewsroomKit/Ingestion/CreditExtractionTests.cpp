#include <gtest/gtest.h>

#include <chrono>

#include "NewsroomKit/Ingestion/CreditExtraction.h"
#include "NewsroomKit/Ingestion/SocialPosts.h"

namespace kit {
namespace {

using Kind = SourceCredit::Kind;

std::vector<SourceCredit> credits(std::string_view html) {
    return extractCredits(html, "", "https://www.blog.example/", "Link Blog");
}

TEST(Credits, ACreditPhraseNamesTheLinkHandleOrNameBehindIt) {
    struct Case {
        const char* html;
        Kind kind;
        const char* name;
        const char* detail;
    };
    const Case cases[] = {
        {"First reported by <a href=\"https://www.bloomberg.com/n/1\">Bloomberg</a>.", Kind::outlet,
         "Bloomberg", "first reported by"},
        {"the plan, according to <em>a note seen by</em> <a href='https://small.example/x'>Small "
         "Site</a>",
         Kind::outlet, "Small Site", "according to"},
        {"(via <a href=\"https://small.example/x\">here</a>)", Kind::outlet, "small.example",
         "via"},
        {"Hat tip to @mika@social.example.", Kind::post, "@mika@social.example", "hat tip to"},
        {"as reported by The Elec and others", Kind::outlet, "The Elec", "as reported by"},
        {"according to Apple, all is well", Kind::apple, "Apple", "according to"},
    };
    for (const auto& c : cases) {
        const auto found = credits(c.html);
        ASSERT_EQ(found.size(), 1u) << c.html;
        EXPECT_EQ(found[0].kind, c.kind) << c.html;
        EXPECT_EQ(found[0].name, c.name) << c.html;
        EXPECT_EQ(found[0].detail, c.detail) << c.html;
    }
}

TEST(Credits, WithoutAPhraseOnlyPostsOutletsAndAppleDocumentsCount) {
    const auto found = credits(
        "<p><a href='https://blog.example/old'>us</a> <a href='https://shop.example/buy'>buy</a> "
        "<a href='https://www.wsj.com/a'>paper</a> <a href='https://www.wsj.com/a'>again</a> "
        "<a href='https://www.apple.com/newsroom/2026/10/x/'>release</a> "
        "<a href='https://www.apple.com/iphone'>product</a> "
        "<a href='https://bsky.app/profile/ann.example/post/3lbmxyzabcd2q'>post</a></p>");
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].name, "The Wall Street Journal");
    EXPECT_EQ(found[1].kind, Kind::apple);
    EXPECT_EQ(found[2].platform, "Bluesky");
    EXPECT_EQ(found[2].name, "@ann.example");
    EXPECT_TRUE(found[2].postedAt);
}

TEST(Credits, NothingIsCreditedTwiceNorTheSourceItself) {
    EXPECT_TRUE(credits("according to Link Blog").empty());
    EXPECT_TRUE(credits("via the usual channels, as reported by people").empty());
    EXPECT_TRUE(credits("A trivia night, viaduct").empty());
    EXPECT_EQ(credits("According to Reuters, yes. According to Reuters, no.").size(), 1u);
    std::string many;
    for (int i = 0; i < 500; ++i)
        many += "via <a href='https://s" + std::to_string(i) + ".example/'>x</a>. ";
    EXPECT_EQ(credits(many).size(), kCreditLimit);
}

TEST(Credits, MarkupIsReadAsABrowserReadsIt) {
    struct Case {
        const char* html;
        const char* name;  // empty: no credit
    };
    const Case cases[] = {
        {"<!-- don't --><p>as reported by <a href=\"https://www.bloomberg.com/x\">Bloomberg</a>, "
         "it's big",
         "Bloomberg"},
        {"It costs < $5, \"more\" via <a href='https://www.theverge.com/a'>The Verge</a>",
         "The Verge"},
        {"<script>according to Evil Corp</script><p>x", ""},
        {"<A HREF=HTTPS://x.com/a/status/20>y</A>", "@a"},
        {"<a title='a > b' href='https://www.ft.com/x'>z</a>", "Financial Times"},
        {"<p>according to</p><p>Somebody Else", ""},
        {"according to Bloomberg\u2019s reporter", "Bloomberg"},
        {"according to NIST\u00a0and others", "NIST"},
        {"according to \u00c9lan Weekly", ""},
        {"via HTTPS, via Settings", ""},
        {"via MacRumors\u2026 more", "MacRumors"},
        {"via @joe\u2019s post", "@joe"},
        {"\u201cAccording to Reuters", "Reuters"},
        {"\u00e9according to Reuters", ""},
    };
    for (const auto& c : cases) {
        const auto found = credits(c.html);
        ASSERT_EQ(found.size(), *c.name ? 1u : 0u) << c.html;
        if (!found.empty()) {
            EXPECT_EQ(found[0].name, c.name) << c.html;
        }
    }
}

TEST(Credits, HostileMarkupEndsQuickly) {
    for (const std::string piece :
         {"via ", "via A ", "<\">\"", "<a \"", "<!-", "<link ", "according to '<"}) {
        std::string html;
        while (html.size() < 2'000'000) html += piece;
        const auto begin = std::chrono::steady_clock::now();
        credits(html);
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4)) << piece;
    }
}

TEST(SocialPost, TellsPlatformAccountAndTimeFromTheAddress) {
    struct Case {
        const char* address;
        const char* platform;  // empty: no post
        const char* account;
        const char* day;
    };
    const Case cases[] = {
        // The time inside X's numbers, as worked out by hand: (number >> 22) + 1288834974657 ms.
        {"https://x.com/ann/status/1585841080431321088", "X", "@ann", "2022-10-28"},
        {"https://twitter.com/ann/status/20", "X", "@ann", ""},
        {"https://mastodon.example/@ann/109252111498807689", "Mastodon", "@ann@mastodon.example",
         "2022-10-29"},
        {"https://www.threads.net/@ann/post/C8x", "Threads", "@ann", ""},
        {"https://x.com/ann", "", "", ""},
        {"https://bsky.app/profile/ann.example", "", "", ""},
        {"https://blog.example/@ann/about", "", "", ""},
        {"https://medium.com/@ann/title-417d97952d42", "", "", ""},
    };
    for (const auto& c : cases) {
        const auto post = socialPost(c.address);
        ASSERT_EQ(post.has_value(), *c.platform != 0) << c.address;
        if (!post) continue;
        EXPECT_EQ(post->platform, c.platform);
        EXPECT_EQ(post->account, c.account);
        EXPECT_EQ(post->postedAt ? iso8601Text(*post->postedAt).substr(0, 10) : "", c.day)
            << c.address;
    }
}

}  // namespace
}  // namespace kit
