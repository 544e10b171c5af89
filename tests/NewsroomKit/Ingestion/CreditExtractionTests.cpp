#include <gtest/gtest.h>

#include <sstream>

#include <chrono>
#include <span>

#include "NewsroomKit/Ingestion/CreditExtraction.h"
#include "NewsroomKit/Ingestion/SocialPosts.h"

namespace kit {
namespace {

using Kind = SourceCredit::Kind;

std::vector<SourceCredit> credits(std::string_view html) {
    return extractCredits(html, "", "https://www.blog.example/", "Link Blog");
}

struct CreditCase {
    const char* html;
    const char* name;  // empty: no credit
    const char* detail = "";
    const char* url = "";
};

void expectCredits(std::span<const CreditCase> cases) {
    for (const auto& c : cases) {
        const auto found = credits(c.html);
        ASSERT_EQ(found.size(), *c.name ? 1u : 0u) << c.html;
        if (found.empty()) continue;
        EXPECT_EQ(found[0].name, c.name) << c.html;
        EXPECT_EQ(found[0].detail.value_or(""), c.detail) << c.html;
        EXPECT_EQ(found[0].url.value_or(""), c.url) << c.html;
    }
}

TEST(Credits, AnOutletIsCreditedByThePhraseThatNamesIt) {
    const CreditCase cases[] = {
        {"First reported by <a href='https://www.bloomberg.com/n/1'>Bloomberg</a>.", "Bloomberg",
         "first reported by", "https://www.bloomberg.com/n/1"},
        {"The Elec reports that panels are late.", "The Elec", "reports"},
        {"The panels are late, reports the Financial Times.", "Financial Times", "reports"},
        {"Nikkei Asia is reporting a delay.", "Nikkei Asia", "reporting"},
        {"Reuters' Ann Writer has also reported it.", "Reuters", "reported"},
        {"Ann Writer, writing for Orchard Stories: It is late.", "Orchard Stories", "writing for"},
        {"Ann Writer writes in an exclusive report for The Register: Late.", "The Register",
         "report for"},
        {"Source: Bloomberg", "Bloomberg", "source:"},
        {"A reader quotes a report from Wired: it is late", "Wired", "report from"},
        {"a person told The Wall Street Journal on Monday", "The Wall Street Journal", "told"},
        {"he said in an interview with Der Spiegel", "Der Spiegel", "interview with"},
        {"The chip is late (via The Verge).", "The Verge", "via"},
        {"The chip is late, per Axios.", "Axios", "per"},
        {"a letter seen by Reuters says so", "Reuters", "seen by"},
        {"as reported by Pat Writer of Recode, <a href='https://bank.example/a'>a bank is</a>",
         "Recode", "as reported by"},
        {"the Danish newspaper Havnen reported on Friday", "Havnen", "reported"},
        {"according to <a href='https://daily.example/2026/11/a-b-c-d'>this article</a>",
         "daily.example", "according to", "https://daily.example/2026/11/a-b-c-d"},
        {"Ann <a href='https://blog.other.example/2026/11/x'>reports in detail</a>",
         "blog.other.example", "reports", "https://blog.other.example/2026/11/x"},
        {"The Financial Times has <a href='https://www.ft.com/content/a-b-c-d'>more</a> on it",
         "Financial Times", "named with a link", "https://www.ft.com/content/a-b-c-d"},
        {"according to Apple, all is well", "Apple", "according to"},
        {"It is late, The Verge writes.", "The Verge", "writes"},
        {"an opinion piece for the New York Times", "The New York Times", "piece for"},
        {"by ann <a href='https://www.bbc.co.uk/news/a-12345'>[link]</a>", "BBC", "[link]",
         "https://www.bbc.co.uk/news/a-12345"},
    };
    expectCredits(cases);
}

TEST(Credits, PostsAndHandlesAreCreditedByThePhraseThatNamesThem) {
    const CreditCase cases[] = {
        {"Hat tip to @mika@social.example.", "@mika@social.example", "hat tip to"},
        {"Ann <a href='https://x.com/ann/status/20'>tweeted</a> a picture", "@ann", "tweeted",
         "https://x.com/ann/status/20"},
        {"Late again. Ann (@ann) <a href='https://x.com/ann/status/20'>May 1</a>", "@ann",
         "embedded post", "https://x.com/ann/status/20"},
        {"[<a href='https://x.com/ann/status/20'>via Ann</a>]", "@ann", "via",
         "https://x.com/ann/status/20"},
        {"hat tip to <a href='https://github.com/ann/tool'>Ann</a>", "github.com", "hat tip to",
         "https://github.com/ann/tool"},
    };
    expectCredits(cases);
}

TEST(Credits, PersonsCompaniesAndPrepositionsAreNoCredits) {
    const CreditCase cases[] = {
        {"according to Chinese law", ""},
        {"according to NIST and others", ""},
        {"according to Ann Writer, who left", ""},
        {"according to Time Warner", ""},
        {"according to <a href='https://court.gov/2026/11/a-b-c-d'>an article</a>", ""},
        {"according to <a href='https://maker.example/blog/why-we-made-it'>the maker</a>", ""},
        {"Orchard Inc. reported quarterly earnings", ""},
        {"on the verge of what she told them", ""},
        {"pay via PayPal, as is usual via the web", ""},
        {"(via Boston)", ""},
        {"Photo via <a href='https://www.wired.com/about'>Wired</a>", ""},
        {"writing for beginners, per Bitcoin", ""},
        {"told The Times, which may be any", ""},
        {"<a href='https://github.com/ann/tool'>code</a>", ""},
        {"<a href='https://www.youtube.com/watch?v=abc'>video</a>", ""},
        {"<a href='https://www.wired.com/'>Wired</a>", ""},
        {"<a href='https://www.wired.com/story/best-tv-deals-this-week/'>Wired</a>", ""},
        {"<a href='https://www.wired.com/wp-content/2026/11/a-b-c-d.jpg'>Wired</a>", ""},
        {"<a href='https://support.apple.com/en-us/123456'>how</a>", ""},
        {"<a href='https://x.com/nobody/status/20'>this</a>", ""},
    };
    expectCredits(cases);
}

TEST(Credits, WithoutAPhraseOneOutletAndAppleDocumentsAreBackground) {
    const std::string common =
        "<p><a href='https://blog.example/old'>us</a> <a href='https://shop.example/buy'>buy</a> "
        "<a href='https://www.macstories.net/stories/a-b-c-d/'>a</a> "
        "<a href='https://www.macstories.net/stories/a-b-c-d/'>b</a> "
        "<a href='https://www.apple.com/newsroom/2026/10/x/'>release</a> "
        "<a href='https://www.apple.com/iphone'>product</a>";
    const auto found = credits(common);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].name, "MacStories");
    EXPECT_EQ(found[0].detail, std::nullopt);
    EXPECT_EQ(found[1].kind, Kind::apple);

    for (const std::string more :
         {"<a href='https://www.wsj.com/tech/a-b-c-d'>c</a>",
          "<a href='https://bsky.app/profile/markgurman.bsky.social/post/3lbmxyzabcd2q'>c</a>"}) {
        const auto left = credits(common + more);
        ASSERT_EQ(left.size(), 1u) << "two outlets: for further reading";
        EXPECT_EQ(left[0].kind, Kind::apple);
    }
    EXPECT_EQ(credits(common + " Reuters reports it.").at(1).name, "Reuters");
}

TEST(Credits, NothingIsCreditedTwiceNorTheSourceItself) {
    EXPECT_TRUE(credits("according to Link Blog").empty());
    EXPECT_TRUE(credits("Ann <a href='https://x.com/blog/status/20'>tweeted</a>").empty());
    EXPECT_TRUE(extractCredits("The Verge reports it. Threads: <a href='https://www.threads.net/"
                               "@verge/post/C8x'>posted</a>",
                               "", "https://www.theverge.com/", "Verge feed")
                    .empty());
    EXPECT_TRUE(credits("via the usual channels, as reported by people").empty());
    EXPECT_TRUE(credits("A trivia night, viaduct").empty());
    EXPECT_EQ(credits("According to Reuters, yes. According to Reuters, no.").size(), 1u);
    std::string many;
    for (int i = 0; i < 500; ++i)
        many += "(via <a href='https://s" + std::to_string(i) + ".example/'>x</a>). ";
    EXPECT_EQ(credits(many).size(), kCreditLimit);
}

TEST(Credits, MarkupIsReadAsABrowserReadsIt) {
    const CreditCase cases[] = {
        {"<!-- don't --><p>as reported by <a href=\"https://www.bloomberg.com/x\">Bloomberg</a>, "
         "it's big",
         "Bloomberg", "as reported by", "https://www.bloomberg.com/x"},
        {"It costs < $5, \"more\" via <a href='https://www.theverge.com/a'>The Verge</a>",
         "The Verge", "via", "https://www.theverge.com/a"},
        {"<script>according to Reuters</script><p>x", ""},
        {"via <A HREF=HTTPS://x.com/a/status/20>y</A>", "@a", "via", "HTTPS://x.com/a/status/20"},
        {"via <a title='a > b' href='https://www.ft.com/x'>z</a>", "Financial Times", "via",
         "https://www.ft.com/x"},
        {"<p>according to</p><p>Somebody Else", ""},
        {"according to\nBloomberg\u2019s reporter", "Bloomberg", "according to"},
        {"according to Reuters\u00a0and others", "Reuters", "according to"},
        {"\u201cAccording to Reuters", "Reuters", "according to"},
        {"\u00e9according to Reuters", ""},
    };
    expectCredits(cases);
}

TEST(Credits, HostileMarkupEndsQuickly) {
    for (const std::string piece : {"via ", "via A ", "A reports ", "told A B C D E F ",
                                    "<a href=http://x.com/a/status/1>tweeted ", "<\">\"", "<a \"",
                                    "<!-", "<link ", "according to '<"}) {
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

TEST(CreditExtractionTest, APageAddsToWhatItsFeedCredits) {
    const auto list = [](const std::string& words) {
        // "Name" is background, "Name*" is cited, "Name@" has a link, "apple" is Apple's.
        std::vector<SourceCredit> credits;
        std::istringstream stream(words);
        for (std::string word; stream >> word;) {
            SourceCredit credit{.name = word.substr(0, word.find_first_of("*@"))};
            if (credit.name == "apple") credit.kind = SourceCredit::Kind::apple;
            if (word.find('*') != word.npos) credit.detail = "reported by";
            if (word.find('@') != word.npos) credit.url = "https://a.example/1";
            credits.push_back(std::move(credit));
        }
        return credits;
    };
    const char* const cases[][3] = {
        {"Harbor*", "", "Harbor*"},
        {"", "Harbor*@", "Harbor*@"},
        {"Harbor*", "harbor*@ Quay*", "Harbor*@ Quay*"},
        {"Harbor@", "Quay*", "Quay*"},
        {"Harbor@ apple@", "Quay*", "apple@ Quay*"},
        {"Harbor@", "Harbor*", "Harbor*@"},
        {"Harbor@", "Quay@", ""},
        {"Harbor*", "Quay@", "Harbor*"},
    };
    for (const auto& [feed, page, joined] : cases)
        EXPECT_EQ(joinedCredits(list(feed), list(page)), list(joined)) << feed << " + " << page;
}

}  // namespace
}  // namespace kit
