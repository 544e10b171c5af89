#include <gtest/gtest.h>

#include <string>

#include "NewsroomKit/Feeds/FeedParser.h"

namespace kit {
namespace {

using Medium = FeedEntry::Medium;

constexpr std::string_view namespaces =
    R"(xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:media="http://search.yahoo.com/mrss/" )"
    R"(xmlns:content="http://purl.org/rss/1.0/modules/content/" )"
    R"(xmlns:itunes="http://www.itunes.com/dtds/podcast-1.0.dtd")";

std::string rss(std::string_view item) {
    return "<rss " + std::string(namespaces) + "><channel><item>" + std::string(item) +
           "</item></channel></rss>";
}

std::string atom(std::string_view entry) {
    return "<feed xmlns=\"http://www.w3.org/2005/Atom\"><entry>" + std::string(entry) +
           "</entry></feed>";
}

FeedEntry onlyEntry(const std::string& document) {
    const auto parsed = parseFeed(document);
    EXPECT_TRUE(parsed.has_value()) << document;
    if (!parsed) return {};
    EXPECT_EQ(parsed.value().entries.size(), 1U) << document;
    return parsed.value().entries.empty() ? FeedEntry{} : parsed.value().entries.front();
}

std::string manyItems(int count) {
    std::string document = "<rss><channel>";
    for (int i = 0; i < count; ++i) {
        document += "<item><title>Item " + std::to_string(i) + "</title></item>";
    }
    return document;
}

TEST(FeedParser, YieldsTheFirst150EntriesAndReadsNoFurther) {
    const auto parsed = parseFeed(manyItems(200) + "<this is never <<< reached");
    ASSERT_TRUE(parsed.has_value());
    EXPECT_TRUE(parsed.value().reachedLimit);
    ASSERT_EQ(parsed.value().entries.size(), 150U);
    EXPECT_EQ(parsed.value().entries.back().title, "Item 149");
}

TEST(FeedParser, DoesNotCallAFeedOf149EntriesLimited) {
    const auto parsed = parseFeed(manyItems(149) + "</channel></rss>");
    ASSERT_TRUE(parsed.has_value());
    EXPECT_FALSE(parsed.value().reachedLimit);
}

TEST(FeedParser, TakesElementNamesInAnyLetterCaseAndUnderAnyPrefix) {
    const auto entry = onlyEntry(
        R"(<RSS xmlns:x="https://purl.org/dc/elements/1.1" xmlns:c="http://purl.org/rss/1.0/modules/content/">)"
        R"(<Channel><ITEM><Title>T</Title><x:Creator>Ann</x:Creator><c:encoded>C</c:encoded>)"
        R"(<PubDate>2026-10-01T08:30:00Z</PubDate><GUID>g</GUID></ITEM></Channel></RSS>)");
    EXPECT_EQ(entry.title, "T");
    EXPECT_EQ(entry.author, "Ann");
    EXPECT_EQ(entry.contentHTML, "C");
    EXPECT_EQ(entry.guid, "g");
    EXPECT_TRUE(entry.publishedAt.has_value());
}

TEST(FeedParser, ReadsAPrefixThatIsNeverBound) {
    const auto entry = onlyEntry(
        "<rss><channel><item><title>T</title><dc:creator>Ann</dc:creator>"
        "<media:thumbnail url=\"https://a.example/b.png\"/></item></channel></rss>");
    EXPECT_EQ(entry.author, "Ann");
    EXPECT_EQ(entry.imageURL, "https://a.example/b.png");
}

TEST(FeedParser, ReadsPlainRSSWhoseRootDeclaresAForeignDefaultNamespace) {
    for (const std::string uri :
         {"http://www.w3.org/2005/Atom", "http://search.yahoo.com/mrss/", "http://example.org/"}) {
        const auto entry = onlyEntry("<rss xmlns=\"" + uri +
                                     "\"><channel><item><title>T</title></item></channel></rss>");
        EXPECT_EQ(entry.title, "T") << uri;
    }
}

TEST(FeedParser, DoesNotTakeAtomElementsInsideRSSForTheItemsOwn) {
    const auto entry = onlyEntry(
        rss(R"(<title>T</title>)"
            R"(<a:link xmlns:a="http://www.w3.org/2005/Atom" href="https://a.example/self"/>)"
            R"(<a:id xmlns:a="http://www.w3.org/2005/Atom">no</a:id>)"
            R"(<link>https://a.example/1</link>)"));
    EXPECT_EQ(entry.link, "https://a.example/1");
    EXPECT_EQ(entry.guid, "");
}

struct FieldCase {
    std::string_view item;
    std::string FeedEntry::* field;
    std::string_view value;
};

TEST(FeedParser, KeepsTheFirstNonEmptyOfRepeatedElements) {
    const FieldCase cases[] = {
        {"<title> </title><title>A</title><title>B</title>", &FeedEntry::title, "A"},
        {"<title>A</title><media:group><title>B</title></media:group>", &FeedEntry::title, "A"},
        {"<media:group><title>B</title></media:group><title>A</title>", &FeedEntry::title, "A"},
        {"<image><title>B</title><link>b</link></image><title>A</title>", &FeedEntry::title, "A"},
        {"<title>Fish &amp; <![CDATA[<b>chips</b>]]></title>", &FeedEntry::title,
         "Fish & <b>chips</b>"},
        {"<title>A</title><description/><description>S</description>", &FeedEntry::summaryHTML,
         "S"},
        {"<title>A</title><description>Tom &amp; <b>J &lt; K</b> too</description>",
         &FeedEntry::summaryHTML, "Tom & <b>J &lt; K</b> too"},
        {"<title>A</title><media:description>M</media:description>", &FeedEntry::summaryHTML, "M"},
        {"<title>A</title><media:description>M</media:description><content:encoded>C"
         "</content:encoded>",
         &FeedEntry::summaryHTML, ""},
        {"<title>A</title><item><title>B</title><guid>b</guid></item><guid>a</guid>",
         &FeedEntry::guid, "a"},
        {"<title>A</title><link>\n https://a.example/1 \n</link>", &FeedEntry::link,
         "https://a.example/1"},
    };
    for (const auto& [item, field, value] : cases) {
        EXPECT_EQ(onlyEntry(rss(item)).*field, value) << item;
    }
}

TEST(FeedParser, ChoosesTheAlternateAmongAtomLinks) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"(<link href="https://a.example/1"/>)", "https://a.example/1"},
        {R"(<link rel="self" href="https://a.example/s"/>)"
         R"(<link rel="alternate" href="https://a.example/1"/>)",
         "https://a.example/1"},
        {R"(<link rel="alternate" type="application/json" href="https://a.example/j"/>)"
         R"(<link rel="alternate" type="text/html" href="https://a.example/1"/>)",
         "https://a.example/1"},
        {R"(<link rel="alternate" type="text/html" href="https://a.example/1"/>)"
         R"(<link rel="alternate" type="text/html" href="https://a.example/2"/>)",
         "https://a.example/1"},
        {R"(<link rel="related" href="https://a.example/r"/>)"
         R"(<link rel="self" href="https://a.example/s"/>)",
         "https://a.example/r"},
    };
    for (const auto& [links, expected] : cases) {
        EXPECT_EQ(onlyEntry(atom("<title>T</title>" + std::string(links))).link, expected) << links;
    }
}

TEST(FeedParser, ReadsDatesOfPublicationBeforeThoseOfRevision) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"<updated>2026-02-02T00:00:00Z</updated><published>2026-01-01T00:00:00Z</published>",
         "2026-01-01T00:00:00Z"},
        {"<updated>2026-02-02T00:00:00Z</updated>", "2026-02-02T00:00:00Z"},
        {"<published>soon</published><updated>2026-02-02T00:00:00Z</updated>",
         "2026-02-02T00:00:00Z"},
        {"<published>soon</published>", ""},
    };
    for (const auto& [dates, expected] : cases) {
        const auto entry = onlyEntry(atom("<title>T</title>" + std::string(dates)));
        EXPECT_EQ(entry.publishedAt ? iso8601Text(*entry.publishedAt) : "", expected) << dates;
    }
}

TEST(FeedParser, TakesAuthorAndSummaryOfAPodcastWhenNothingElseNamesThem) {
    const std::string podcast =
        "<itunes:author>Siv</itunes:author><itunes:summary>&lt;p>Ropes.&lt;/p></itunes:summary>";
    const auto alone = onlyEntry(rss("<title>T</title>" + podcast));
    EXPECT_EQ(alone.author, "Siv");
    EXPECT_EQ(alone.summaryHTML, "<p>Ropes.</p>");

    const auto last =
        onlyEntry(rss("<title>T</title>" + podcast +
                      "<dc:creator>Tor</dc:creator><content:encoded>C</content:encoded>"));
    EXPECT_EQ(last.author, "Tor");
    EXPECT_EQ(last.summaryHTML, "");

    const auto described =
        onlyEntry(rss("<title>T</title>" + podcast + "<media:description>M</media:description>"));
    EXPECT_EQ(described.summaryHTML, "M");

    const auto addressed = onlyEntry(rss("<author>crew@a.example</author>" + podcast));
    EXPECT_EQ(addressed.author, "Siv") << "an address is no name";
    EXPECT_EQ(onlyEntry(rss("<author>crew@a.example</author>")).author, "crew@a.example");
}

TEST(FeedParser, TakesAtomsDatesInsideRSSWhenThereIsNoOther) {
    const std::string updated =
        "<a:updated xmlns:a=\"http://www.w3.org/2005/Atom\">2026-02-02T00:00:00Z</a:updated>";
    const auto alone = onlyEntry(rss("<title>T</title>" + updated));
    EXPECT_EQ(alone.publishedAt, parseISO8601("2026-02-02T00:00:00Z"));
    const auto last =
        onlyEntry(rss("<title>T</title>" + updated + "<pubDate>2026-01-01T00:00:00Z</pubDate>"));
    EXPECT_EQ(last.publishedAt, parseISO8601("2026-01-01T00:00:00Z"));
}

struct ImageCase {
    std::string_view item;
    std::optional<std::string> image;
};

TEST(FeedParser, ChoosesThePictureOfAnEntry) {
    const ImageCase cases[] = {
        {R"(<enclosure url="https://a.example/e" type="image/png"/>)"
         R"(<itunes:image href="https://a.example/i"/>)"
         R"(<media:thumbnail url="https://a.example/m"/>)",
         "https://a.example/m"},
        {R"(<itunes:image href="https://a.example/i"/>)"
         R"(<enclosure url="https://a.example/e" type="image/png"/>)",
         "https://a.example/e"},
        {R"(<media:content url="https://a.example/s" medium="image" width="150"/>)"
         R"(<media:content url="https://a.example/l" medium="image" width="1200"/>)"
         R"(<media:thumbnail url="https://a.example/t" width="75"/>)",
         "https://a.example/l"},
        {R"(<media:content url="https://a.example/v.mp4" type="video/mp4"/>)"
         R"(<itunes:image href="https://a.example/i"/>)",
         "https://a.example/i"},
        {R"(<media:content url="https://a.example/p.WEBP?w=3"/>)", "https://a.example/p.WEBP?w=3"},
        {R"(<media:content url="https://a.example/p.webm"/>)", std::nullopt},
        {R"(<enclosure url="https://a.example/p.jpeg"/>)", "https://a.example/p.jpeg"},
        {R"(<media:thumbnail url="https://a.example/emoji/1.png"/>)"
         R"(<itunes:image href="https://a.example/i"/>)",
         "https://a.example/i"},
        {R"(<media:thumbnail url="/p.png"/><itunes:image href="https://a.example/i"/>)",
         "https://a.example/i"},
        {R"(<description>&lt;IMG class='x' SRC='https://a.example/emoji/1.png'&gt; &lt;img src="https://a.example/pixel.gif"&gt; &lt;img src="data:x"&gt; &lt;img alt="" src="https://a.example/1?a=1&amp;amp;b=2"&gt;</description>)",
         "https://a.example/1?a=1&b=2"},
        {R"(<description>&lt;img src="https://a.example/emoji/1.png"&gt;</description>)",
         std::nullopt},
    };
    for (const auto& [item, image] : cases) {
        EXPECT_EQ(onlyEntry(rss("<title>T</title>" + std::string(item))).imageURL, image) << item;
    }
}

TEST(FeedParser, TellsTheMediumOfAnEntry) {
    const std::pair<std::string_view, Medium> cases[] = {
        {"<title>T</title>", Medium::article},
        {"<description>D</description>", Medium::post},
        {"<description>&lt;img src='a'&gt;</description>", Medium::article},
        {"<title>T</title><link>https://www.youtube.com/watch?v=1</link>", Medium::video},
        {"<title>T</title><link>https://m.youtube.com/shorts/1</link>", Medium::video},
        {"<title>T</title><link>https://YOUTU.BE/1</link>", Medium::video},
        {"<title>T</title><link>https://www.YouTube.com/watch?v=1</link>", Medium::video},
        {"<title>T</title><link>https://www.yOUTUbe.com/shorts/1</link>", Medium::video},
        {"<title>T</title><link>https://www.youtube.com/@channel</link>", Medium::article},
        {"<title>T</title><link>https://notyoutube.com/watch?v=1</link>", Medium::article},
        {"<title>T</title><enclosure url='https://a.example/1' type='audio/mpeg'/>", Medium::audio},
        {"<title>T</title><enclosure url='https://a.example/1.OPUS?x' type=''/>", Medium::audio},
        {"<title>T</title><enclosure url='https://a.example/1.mp3' type='video/mp4'/>",
         Medium::article},
    };
    for (const auto& [item, medium] : cases) {
        EXPECT_EQ(onlyEntry(rss(item)).medium, medium) << item;
    }
}

TEST(FeedParser, LeavesAnEntryWithoutAnyTextUntitled) {
    EXPECT_EQ(onlyEntry(rss("<link>https://a.example/1</link>")).title, "");
}

}  // namespace
}  // namespace kit
