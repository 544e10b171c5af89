#include "NewsroomKit/Pages/ArticleText.h"

#include <string>

#include <gtest/gtest.h>

namespace kit {
namespace {

const std::string prose =
    "Growers in the valley said on Monday that the pears are ripe, two weeks before the usual "
    "time, "
    "and that the harvest will be larger than last year's. ";

std::string textOf(const std::string& body) {
    const std::string html = "<html><head><title>Pears are early</title></head><body>" + body;
    const auto article =
        readArticle({.bytes = html, .url = "https://orchard.example/pears", .contentType = {}});
    if (!article) return std::string(rawValue(article.error()));
    std::string text;
    for (const auto& block : article.value().blocks) text += block.text + "|";
    return text;
}

std::string paragraphs(int count) {
    std::string html;
    for (int i = 0; i < count; ++i) html += "<p>" + std::to_string(i) + " " + prose + "</p>";
    return html;
}

std::string expected(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += std::to_string(i) + " " + prose.substr(0, prose.size() - 1) + "|";
    }
    return text;
}

TEST(ArticleText, is_the_prose_without_what_stands_around_it) {
    const std::string links = "<ul><li><a href=/a>One more story of ours</a></ul>";
    const std::string cases[] = {
        "<nav>" + links + "</nav><article><h1>Pears are early</h1>" + paragraphs(4) + "</article>" +
            links,
        "<div id=header><a href=/>Orchard</a></div><div class=content>" + paragraphs(4) +
            "</div><div class=comments>" + paragraphs(2) + "</div>",
        "<div><a href=/>Home</a></div><div class='widget Blog'><div class='post-body "
        "entry-content'>" +
            paragraphs(4) + "</div></div><div class=widget>" + links + "</div>",
        "<main><a href=/all>All stories</a><section>" + paragraphs(4) +
            "<figure><img><figcaption>A pear</figcaption></figure><div class='related-stories'>" +
            links +
            "</div><p><a href=/app>GET OUR PEAR APP NOW</a></p><div>3</div></section></main>",
    };
    for (const auto& body : cases) EXPECT_EQ(textOf(body), expected(4)) << body;
}

TEST(ArticleText, keeps_lists_tables_quotes_and_code_in_the_article) {
    const std::string inside =
        "<h2>Sorts</h2><ul><li><a href=/c>Conference</a></ul><table><tr><td>Sort<td>Price<tr>"
        "<td>Conference<td>$2</table><blockquote>Early is good</blockquote><pre>a\n b</pre>";
    EXPECT_EQ(
        textOf("<nav><a href=/>Home of the Orchard</a></nav><article>" + paragraphs(3) + inside),
        expected(3) + "Sorts|Conference|Sort · Price|Conference · $2|Early is good|a\n b|");
}

TEST(ArticleText, of_a_document_without_links_is_all_of_it) {
    EXPECT_EQ(textOf("<div>Exhibit 9</div><table><tr><td>Pears<td>9</table>"),
              "Exhibit 9|Pears · 9|");
}

TEST(ArticleText, names_walls_instead_of_reading_them) {
    EXPECT_EQ(textOf("<p>Please verify you are human to continue."), "blocked");
    EXPECT_EQ(textOf("<script>all()</script>"), "tooShort");
    EXPECT_EQ(rawValue(readArticle({.bytes = "%PDF-1.7", .url = "", .contentType = {}}).error()),
              "notHTML");
    const auto html =
        "<script type=\"application/ld+json\">{\"isAccessibleForFree\":\"False\"}</script>" +
        paragraphs(2);
    EXPECT_TRUE(readArticle({.bytes = html, .url = "", .contentType = {}}).value().isPaywalled);
}

TEST(ArticleText, becomes_HTML_with_its_links_in_place) {
    Article article;
    article.blocks.push_back({.kind = PageBlock::Kind::paragraph,
                              .level = {},
                              .headings = {},
                              .text = "A < B, says the map & more",
                              .links = {{"the map", "https://a.example/?x=1&y=\"2\""}}});
    EXPECT_EQ(
        articleHTML(article),
        "<p>A &lt; B, says <a href=\"https://a.example/?x=1&amp;y=&quot;2&quot;\">the map</a> "
        "&amp; more</p>\n");
}

}  // namespace
}  // namespace kit
