#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "NewsroomKit/Feeds/FeedParser.h"

namespace kit {
namespace {

constexpr std::string_view feedAddress = "https://harbour.example/feeds/all.xml";

std::vector<FeedEntry> entriesOf(const std::string& document, std::string_view address) {
    auto parsed = parseFeed(document, address);
    EXPECT_TRUE(parsed.has_value()) << document;
    return parsed ? std::move(parsed.value().entries) : std::vector<FeedEntry>{};
}

/// The entry's link, or its guid where it has none.
std::string linkOf(const std::string& document, std::string_view address = {}) {
    const auto entries = entriesOf(document, address);
    if (entries.size() != 1) return "(none)";
    return entries[0].link.empty() ? entries[0].guid : entries[0].link;
}

std::string rss(std::string_view channel, std::string_view item) {
    return "<rss><channel>" + std::string(channel) + "<item><title>T</title>" + std::string(item) +
           "</item></channel></rss>";
}

std::string atom(std::string_view feed, std::string_view entry) {
    return "<feed " + std::string(feed) + "<entry><title>T</title>" + std::string(entry) +
           "</entry></feed>";
}

TEST(FeedAddresses, AreCompletedByTheNearestBaseThatTheDocumentNames) {
    struct Case {
        std::string document;
        std::string_view address;
        std::string_view link;
    };
    const std::string link = "<link>/news/1</link>";
    const std::string atomLink = "<link href='n/1'/>";
    const std::string page = "<link>https://pier.example/blog/</link>";
    const Case cases[] = {
        {rss("", link), feedAddress, "https://harbour.example/news/1"},
        {rss(page, link), feedAddress, "https://pier.example/news/1"},
        {rss(page, "<link>n/1?a=b</link>"), {}, "https://pier.example/blog/n/1?a=b"},
        {rss("<link>/blog</link>", link), feedAddress, "https://harbour.example/news/1"},
        {rss("<link>//pier.example/</link>", link), feedAddress, "https://pier.example/news/1"},
        {rss("<a:link xmlns:a='http://www.w3.org/2005/Atom' rel='self' "
             "href='https://pier.example/f.xml'/>",
             link),
         {},
         "https://pier.example/news/1"},
        {rss("<image><link>https://images.example/</link></image>", link), feedAddress,
         "https://harbour.example/news/1"},
        {rss(page, "<link>//quay.example/2</link>"), {}, "https://quay.example/2"},
        {rss("", "<link>//quay.example/2</link>"), {}, "https://quay.example/2"},
        {rss("", "<link>www.quay.example/2</link>"), feedAddress, "https://www.quay.example/2"},
        {rss(page, "<link>https://quay.example/a b</link>"), {}, "https://quay.example/a b"},
        {rss(page, "<link>mailto:desk@quay.example</link>"), {}, "mailto:desk@quay.example"},
        {rss("", link), {}, "/news/1"},
        {atom("><link href='https://pier.example/b/'/>", atomLink), feedAddress,
         "https://pier.example/b/n/1"},
        {atom("><link rel='self' href='https://pier.example/b/f'/>", atomLink),
         {},
         "https://pier.example/b/n/1"},
        {atom("xml:base='https://quay.example/x/'><link href='https://pier.example/'/>", atomLink),
         feedAddress, "https://quay.example/x/n/1"},
        {atom("xml:base='/deep/'>", atomLink), feedAddress, "https://harbour.example/deep/n/1"},
        {atom("xml:base='https://quay.example/x/'>", "<link xml:base='y/' href='n/1'/>"),
         {},
         "https://quay.example/x/y/n/1"},
        {atom("xml:base='https://quay.example/x/'>",
              "<content xml:base='https://other.example/'>c</content>" + atomLink),
         {},
         "https://quay.example/x/n/1"},
    };
    for (const auto& c : cases) EXPECT_EQ(linkOf(c.document, c.address), c.link) << c.document;
}

TEST(FeedAddresses, APageThatIsNamedBehindTheEntriesCountsForThemToo) {
    const std::string item = "<item><title>T</title><link>/1</link></item>";
    const std::string document =
        "<rss><channel>" + item + "<link>https://pier.example/</link></channel></rss>";
    EXPECT_EQ(linkOf(document, feedAddress), "https://pier.example/1");
    EXPECT_EQ(linkOf(document), "https://pier.example/1");
}

TEST(FeedAddresses, APermalinkMayBeRelativeAndANameIsNone) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"<guid isPermaLink='true'>2</guid>", "https://harbour.example/feeds/2"},
        {"<guid>/news/2</guid>", "https://harbour.example/news/2"},
        {"<guid>post-2</guid>", "post-2"},
        {"<guid isPermaLink='false'>/news/2</guid>", "/news/2"},
        {"<guid isPermaLink='true'>https://pier.example/2</guid>", "https://pier.example/2"},
    };
    for (const auto& [item, link] : cases) EXPECT_EQ(linkOf(rss("", item), feedAddress), link);
}

TEST(FeedAddresses, PicturesAreCompletedAsLinksAre) {
    const std::string_view media = "xmlns:media='http://search.yahoo.com/mrss/'";
    const std::pair<std::string, std::string_view> cases[] = {
        {"<enclosure type='image/png' url='/a.png'/>", "https://harbour.example/a.png"},
        {"<media:content medium='image' url='//cdn.example/a'/>", "https://cdn.example/a"},
        {"<media:thumbnail url=' a.png '/>", "https://harbour.example/feeds/a.png"},
        {"<itunes:image href='/i.png'/>", "https://harbour.example/i.png"},
        {"<description>&lt;img src=\"/d.png\"&gt;</description>", "https://harbour.example/d.png"},
        {"<description xml:base='https://pier.example/x/'>&lt;img src=\"d.png\"&gt;</description>",
         "https://pier.example/x/d.png"},
    };
    for (const auto& [item, image] : cases) {
        const auto entries = entriesOf(
            "<rss " + std::string(media) + "><channel><item>" + item + "</item></channel></rss>",
            feedAddress);
        ASSERT_EQ(entries.size(), 1U);
        EXPECT_EQ(entries[0].imageURL, image) << item;
    }
}

TEST(FeedAddresses, AmpersandsThatWereEscapedTwiceAreDecoded) {
    for (const std::string_view escaped :
         {"&amp;amp;", "&amp;amp;amp;", "&amp;#38;", "&amp;#038;"}) {
        EXPECT_EQ(linkOf(rss(
                      "", "<link>https://pier.example/?a=1" + std::string(escaped) + "b=2</link>")),
                  "https://pier.example/?a=1&b=2");
    }
}

TEST(FeedAddresses, AnEpisodeWithoutAPageOfItsOwnLeadsToItsRecording) {
    const auto audio = [](std::string_view name) {
        return "<enclosure type='audio/mpeg' url='https://cast.example/" + std::string(name) +
               "'/>";
    };
    const auto two = [](const std::string& first, const std::string& second) {
        return "<rss><channel><item><title>A</title>" + first + "</item><item><title>B</title>" +
               second + "</item></channel></rss>";
    };
    const std::string show = "<link>https://show.example/</link>";
    struct Case {
        std::string document;
        std::string_view first, second;
    };
    const Case cases[] = {
        {two(audio("1") + "<guid>ep-1</guid>", audio("2") + "<link>n/a</link>"),
         "https://cast.example/1", "https://cast.example/2"},
        {two(show + audio("1"), show + audio("2")), "https://cast.example/1",
         "https://cast.example/2"},
        {two("<link>http://show.example#1</link>" + audio("1"), show + audio("2")),
         "https://cast.example/1", "https://cast.example/2"},
        {two(show + audio("1"), show), "https://cast.example/1", "https://show.example/"},
        {two(show + audio("1"), "<link>https://show.example/2</link>" + audio("2")),
         "https://show.example/", "https://show.example/2"},
        {two(audio("1") + "<guid>https://show.example/1</guid>",
             audio("2") + "<guid>https://show.example/2</guid>"),
         "", ""},
        {two("<enclosure type='Video/mp4' url='https://cast.example/v'/>", show + show),
         "https://cast.example/v", "https://show.example/"},
        {two("<enclosure type='audio/mpeg' url='n/a'/>", show), "", "https://show.example/"},
    };
    for (const auto& c : cases) {
        const auto entries = entriesOf(c.document, {});
        ASSERT_EQ(entries.size(), 2U) << c.document;
        EXPECT_EQ(entries[0].link, c.first) << c.document;
        EXPECT_EQ(entries[1].link, c.second) << c.document;
    }
}

std::string relativePictures(int count) {
    std::string pictures;
    for (int i = 0; i < count; ++i) pictures += "<enclosure url='../a.png' type='image/png'/>";
    return pictures;
}

TEST(FeedAddresses, ThousandsOfRelativePicturesLeaveTheLinkComplete) {
    EXPECT_EQ(linkOf(rss("", relativePictures(32'000) + "<link>/1</link>"), feedAddress),
              "https://harbour.example/1");
}

TEST(FeedAddresses, ADocumentFullOfRelativeAddressesEndsSoon) {
    const std::string pictures = relativePictures(150'000);
    std::string bases;
    const std::string host(900, 'x');
    for (int i = 0; i < 5'000; ++i) bases += "<a xml:base='https://ü" + host + ".example/'/>";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(linkOf(rss("", pictures + bases + "<link>/1</link>"), feedAddress), "/1");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace kit
