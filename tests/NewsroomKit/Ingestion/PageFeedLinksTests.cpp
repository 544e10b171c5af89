#include <gtest/gtest.h>

#include "NewsroomKit/Ingestion/PageFeedLinks.h"

namespace kit {
namespace {

constexpr const char* kPage = "https://example.com/blog/";

TEST(PageFeedLinks, FindsAlternateLinksOfFeedTypesInAnyLetterCaseAndQuotes) {
    const auto links = pageFeedLinks(
        "<HTML><HEAD><Link REL='Alternate' TYPE=\"application/RSS+xml\" "
        "href='https://example.com/f?a=1&amp;b=2'>"
        "<link rel=stylesheet href=style.css><link rel=\"alternate nofollow\" "
        "type='application/atom+xml' "
        "href=\"/atom.xml\"/><link rel='alternate' type='text/html' href='/de'>"
        "<link rel='alternates' type='application/rss+xml' href='/no'>"
        "<link rel='alternate' type='application/rss+xml' href='/atom.xml'>"
        "<link rel='alternate' type='application/rss+xml' href='javascript:x'>",
        kPage);
    EXPECT_EQ(links, (std::vector<std::string>{"https://example.com/f?a=1&b=2",
                                               "https://example.com/atom.xml"}));
    const struct {
        const char* html;
        std::vector<std::string> links;
    } cases[] = {
        {"<link rel=alternate type=rss href=", {}},
        {"<linkage rel='alternate' type='rss' href='/a'>", {}},
        {"<!-- <link rel='alternate' type='rss' href='/old'> --><LINK\nrel='alternate' type='rss' "
         "href='/new'>",
         {"https://example.com/new"}},
        {"<!-- <link rel='alternate' type='rss' href='/old'>", {}},
        {"<base href='//cdn.example/x/'><link rel='alternate' type='rss' href='feed'>",
         {"https://cdn.example/x/feed"}},
        {"<base href='javascript:x'><link rel='alternate' type='rss' href=''>"
         "<link rel='alternate' type='rss' href='feed'>",
         {"https://example.com/blog/feed"}},
        {"<link rel='alternate' type='rss' href='file:///etc/passwd'>", {}},
    };
    for (const auto& c : cases) EXPECT_EQ(pageFeedLinks(c.html, kPage), c.links) << c.html;
    std::string hostile;
    while (hostile.size() < 500'000) hostile += "<link ";
    EXPECT_TRUE(pageFeedLinks(hostile + ">", kPage).empty()) << "and in no time";
}

TEST(PageTitle, IsTakenUpToItsDash) {
    struct Case {
        const char* html;
        std::optional<std::string> title;
    };
    const Case cases[] = {
        {"<head><TITLE lang=en>\n Six &amp; Co - Home</TITLE>", "Six & Co"},
        {"<title><![CDATA[ Wrapped ]]></title>", "Wrapped"},
        {"<title></title>", std::nullopt},
        {"<p>none", std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(pageTitle(c.html), c.title) << c.html;
}

}  // namespace
}  // namespace kit
