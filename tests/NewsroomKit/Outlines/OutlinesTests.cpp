#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>

#include "NewsroomKit/Outlines/OutlineParser.h"
#include "NewsroomKit/Outlines/OutlineWriter.h"

namespace kit {
namespace {

std::string opml(const std::string& body) {
    return "<opml version='2.0'><head/><body>" + body + "</body></opml>";
}

std::string repeated(const std::string& text, int times) {
    std::string out;
    for (int i = 0; i < times; ++i) out += text;
    return out;
}

std::string manyFeeds(int count) {
    std::string body;
    for (int i = 0; i < count; ++i) {
        body += "<outline text='a' xmlUrl='https://a.example/" + std::to_string(i) + "'/>";
    }
    return opml(body);
}

/// "3 feeds, 1 skipped", or the error.
std::string outcome(const OutlinesResult& result) {
    if (!result) return std::string(rawValue(result.error()));
    return std::to_string(result.value().feeds.size()) + " feeds, " +
           std::to_string(result.value().skipped.size()) + " skipped";
}

TEST(OutlineParser, TakesSecureFeedsOnceWithTheirFoldersAndTellsWhatItSkips) {
    std::ifstream file(BRELL_FIXTURES "/outlines/folders-and-refusals.opml", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const auto parsed = parseOutlines(bytes);
    ASSERT_TRUE(parsed) << description(parsed.error());
    const Outlines expected{.title = "Lena's & Tom's feeds",
                            .feeds = {{.title = "Harbour Notes",
                                       .feedURL = "https://harbour.example/feed?b=2&a=1",
                                       .siteURL = "http://harbour.example/"},
                                      {.title = "Café Wire é",
                                       .feedURL = "https://xn--caf-dma.example/feed",
                                       .folders = {"Macs"}},
                                      {.title = "Sole title",
                                       .feedURL = "https://sole.example/atom.xml",
                                       .folders = {"Macs", "Deep & down"}}},
                            .skipped = {{"Again", OutlineRefusal::listed},
                                        {"Plain", OutlineRefusal::notHTTPS},
                                        {"Runs", OutlineRefusal::command},
                                        {"Runs too", OutlineRefusal::command},
                                        {"Script", OutlineRefusal::noWebAddress},
                                        {"Local", OutlineRefusal::noWebAddress},
                                        {"https:///nowhere", OutlineRefusal::noWebAddress},
                                        {"A page", OutlineRefusal::notAFeed}}};
    EXPECT_EQ(parsed.value().title, expected.title);
    EXPECT_EQ(parsed.value().feeds, expected.feeds);
    EXPECT_EQ(parsed.value().skipped, expected.skipped);
}

TEST(OutlineParser, RefusesWhatIsHostileHugeOrNoListInShortTime) {
    const std::string feed = "<outline text='a' xmlUrl='https://a.example/'/>";
    const std::string external = "<!DOCTYPE opml SYSTEM 'https://evil.example/opml.dtd'>";
    const std::string nested =
        repeated("<outline text='x'>", 1000) + feed + repeated("</outline>", 1000);
    std::string attributes = "<outline ";
    for (int i = 0; i < 300'000; ++i) attributes += "a" + std::to_string(i) + "='' ";
    const struct {
        const char* name;
        std::string document;
        const char* outcome;
    } cases[] = {
        {"a list", opml(feed), "1 feeds, 0 skipped"},
        {"a list with white space and marks before it", "\xEF\xBB\xBF \n" + opml(feed),
         "1 feeds, 0 skipped"},
        {"a page", "<!DOCTYPE html><html><body><p>Log in<br></body></html>", "notOutlines"},
        {"a feed", "<rss><channel/></rss>", "notOutlines"},
        {"nothing", "", "notOutlines"},
        {"text", "https://a.example/feed", "notOutlines"},
        {"a list cut off", "<opml><body>" + feed, "malformed"},
        {"entities that grow",
         "<!DOCTYPE opml [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;'>]>" +
             opml("<outline text='&b;' xmlUrl='https://a.example/'/>"),
         "malformed"},
        {"a file as entity",
         "<!DOCTYPE opml [<!ENTITY x SYSTEM 'file:///etc/passwd'>]>" + opml("&x;"), "malformed"},
        {"attributes by default",
         "<!DOCTYPE opml [<!ATTLIST outline xmlUrl CDATA 'https://evil.example/'>]>" +
             opml("<outline text='x'/>"),
         "malformed"},
        {"a document type elsewhere", external + opml(feed), "1 feeds, 0 skipped"},
        {"outlines a thousand deep",
         opml(nested + "<outline text='b' xmlUrl='https://b.example/'/>"), "1 feeds, 1 skipped"},
        {"elements that never end", "<opml>" + repeated("<a>", 1'000'000), "tooMany"},
        {"attributes without end", opml(attributes + "/>"), "malformed"},
        {"outlines with far too many attributes",
         opml(repeated(attributes.substr(0, 60'000) + "/>", 60)), "malformed"},
        {"as many as fit", manyFeeds(5000), "5000 feeds, 0 skipped"},
        {"one too many", manyFeeds(5001), "tooMany"},
        {"a large file", opml(std::string(5'000'000, ' ')), "tooLarge"},
        {"a name without end", opml("<outline text='" + std::string(4'000'000, 'x') + "'/>"),
         "malformed"},
    };
    for (const auto& c : cases) {
        const auto begin = std::chrono::steady_clock::now();
        EXPECT_EQ(outcome(parseOutlines(c.document)), c.outcome) << c.name;
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10)) << c.name;
    }
    EXPECT_EQ(parseOutlines(opml(nested)).value().skipped.at(0).reason, OutlineRefusal::tooDeep);
}

TEST(OutlineWriter, WritesWhatItsReaderReadsBackTheSame) {
    const Outlines outlines{
        .title = "Mine & yours",
        .feeds = {
            {"One \"two\" & ü", "https://a.example/?x=1&y='2'", "https://a.example/", {"Press"}},
            {"Two", "https://b.example/", "", {"Press"}},
            {"Three", "https://c.example/", "", {"Press", "Inner"}},
            {"Four", "https://d.example/", "http://d.example/", {"Video"}},
            {"Five", "https://e.example/", "", {}}}};
    const auto written = writeOutlines(outlines);
    EXPECT_EQ(parseOutlines(written).value(), outlines) << written;
    const auto closed = written.find("</outline>");
    EXPECT_EQ(written.find("<outline text=\"Press\">", closed), std::string::npos)
        << "neighbours share their folder";

    const auto damaged = writeOutlines({.feeds = {{"\x01"
                                                   "bell\xFF",
                                                   "",
                                                   "https://f.example/",
                                                   {}}}});
    ASSERT_TRUE(parseOutlines(damaged)) << damaged;
    EXPECT_NE(damaged.find("bell"), std::string::npos);
    EXPECT_EQ(damaged.find("xmlUrl"), std::string::npos);
}

}  // namespace
}  // namespace kit
