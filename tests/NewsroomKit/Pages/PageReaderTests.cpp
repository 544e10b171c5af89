#include "NewsroomKit/Pages/PageReader.h"

#include <chrono>
#include <string>

#include <gtest/gtest.h>

#include "NewsroomKit/Pages/PageKeys.h"

namespace kit {
namespace {

Page pageOf(std::string_view html) {
    return readPageText(
        {.bytes = html, .url = "https://orchard.example/rules/list", .contentType = {}});
}

/// "heading: 2.5 Software" a line.
std::string linesOf(const Page& page) {
    std::string lines;
    for (const auto& block : page.blocks) {
        lines += std::string(rawValue(block.kind)) + ": " + block.text + "\n";
    }
    return lines;
}

TEST(PageReader, gives_each_part_of_a_page_the_kind_that_its_element_has) {
    const struct {
        const char* html;
        const char* lines;
    } cases[] = {
        {"<h2>Sorting&nbsp;fruit</h2><p>Pears\n  first.",
         "heading: Sorting fruit\nparagraph: Pears first.\n"},
        {"<ul><li>one<ul><li>two</ul><li><p>three</ul>", "item: one\nitem: two\nitem: three\n"},
        {"<dl><dt>Pip<dd>A seed</dl>", "term: Pip\nterm: A seed\n"},
        {"<table><tr><th>Kind<th>Price<tr><td>Quince<td><b>$2</b></table>",
         "row: Kind · Price\nrow: Quince · $2\n"},
        {"<table><tr><td><h3>Left</h3>text<td><p>right</table>",
         "heading: Left\ntext: text\nparagraph: right\n"},
        {"<blockquote><p>said</p></blockquote><figure><img><figcaption>A "
         "tree</figcaption></figure>",
         "quote: said\ncaption: A tree\n"},
        {"<pre>\n  a\n b</pre>", "code:   a\n b\n"},
        {"<div>a<br>b<br> <br>c</div>", "text: a b\ntext: c\n"},
        {"<p>ripe<sup>2</sup> 10<sup>th</sup> so\xC2\xAD"
         "ft e\xCC\x81",
         "paragraph: ripe[2] 10th soft \xC3\xA9\n"},
        {"<p>seen<script>x</script><span hidden>no</span><span aria-hidden=true>icon</span>",
         "paragraph: seen\n"},
        {"<nav>a</nav><header role=banner>b</header><p>c</p><footer>d</footer>", "paragraph: c\n"},
    };
    for (const auto& one : cases) EXPECT_EQ(linesOf(pageOf(one.html)), one.lines) << one.html;
}

TEST(PageReader, names_the_headings_above_a_block_and_completes_its_links) {
    const auto page = pageOf(
        "<h1>Rules</h1><h3>Deep</h3><p>x</p><h2>Wide</h2>"
        "<p>see <a href='../map?a=1'>the <b>map</b></a> <a href='javascript:x'>no</a></p>");
    ASSERT_EQ(page.blocks.size(), 5U);
    EXPECT_EQ(page.blocks[2].headings, (std::vector<std::string>{"Rules", "Deep"}));
    EXPECT_EQ(page.blocks[4].headings, (std::vector<std::string>{"Rules", "Wide"}));
    EXPECT_EQ(page.blocks[4].links,
              (std::vector<PageLink>{{"the map", "https://orchard.example/map?a=1"}}));
}

TEST(PageReader, keeps_only_a_main_part_that_holds_most_of_the_text) {
    const std::string text(70, 'm');
    EXPECT_EQ(linesOf(pageOf("<div>aside</div><main><p>" + text + "</main>")),
              "paragraph: " + text + "\n");
    EXPECT_EQ(pageOf("<div>" + text + "</div><main><p>short</main>").blocks.size(), 2U);
}

TEST(PageReader, says_why_an_answer_is_no_page) {
    const std::string prose = "<p>" + std::string(450, 'x');
    const auto problem = [](const PageAnswer& answer) -> std::string {
        const auto page = readPage(answer);
        return page ? "none" : std::string(rawValue(page.error()));
    };
    const std::string zip("PK\3\4\0\0\0\0\1\2\3\4\5\6<p>", 17);
    const std::string huge(longestPage + 1, ' ');
    EXPECT_EQ(problem({prose, "", "text/html"}), "none");
    EXPECT_EQ(problem({prose, "", "application/json"}), "notHTML");
    EXPECT_EQ(problem({zip, "", ""}), "notHTML");
    EXPECT_EQ(problem({"{\"a\":1}", "", ""}), "notHTML");
    EXPECT_EQ(problem({prose, "", "", 403}), "blocked");
    EXPECT_EQ(problem({"<title>Just a moment…</title><p>Wait", "", ""}), "blocked");
    EXPECT_EQ(problem({"<p>short", "", ""}), "tooShort");
    EXPECT_EQ(problem({huge, "", ""}), "tooLarge");
}

TEST(PageReader, believes_the_bytes_before_the_label) {
    EXPECT_EQ(pageOf("<meta charset=iso-8859-1><p>\xC3\xA9").blocks.at(0).text, "\xC3\xA9");
    EXPECT_EQ(pageOf("<meta charset=gb2312><p>\xB9\xFB").blocks.at(0).text, "果");
}

TEST(PageReader, reads_hostile_pages_in_bounded_time) {
    std::string deep, stray, wide = "<p ";
    for (int i = 0; i < 5'000; ++i) deep += "<div>";
    for (int i = 0; i < 50'000; ++i) stray += "<b>";
    for (int i = 0; i < 200'000; ++i) stray += "</i>";
    for (int i = 0; i < 200'000; ++i) wide += "a" + std::to_string(i) + " ";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(linesOf(pageOf(deep + "core")), "text: core\n");
    EXPECT_EQ(linesOf(pageOf(wide + ">after")), "paragraph: after\n");
    pageOf(stray);
    EXPECT_EQ(linesOf(pageOf(std::string("<p>a\0b", 6))), "paragraph: a b\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(PageKeys, differ_only_when_a_reader_sees_a_difference) {
    const auto keys = [](const char* text) { return pageKeys(pageOf(text).blocks).key; };
    const char* same[][2] = {
        {"<p>Posted 5 minutes ago", "<p>Posted an hour ago"},
        {"<p>© 2025 Orchard", "<p>© 2001–2026 Orchard"},
        {"<p>“Quoted” it’s", "<p>\"Quoted\" it's"},
        {"<p>id 6874dceb85f821cdee999836b0b62db8", "<p>id 00002ceb85f821cdee999836b0b62db8"},
        {"<p>at 2026-11-22T10:00:01Z", "<p>at 2026-11-22T10:05:09.5+01:00"},
        {"<p>1,204 views", "<p>1.3K views"},
        {"<p class=a>x", "<p id=b>x"},
    };
    for (const auto& [a, b] : same) EXPECT_EQ(keys(a), keys(b)) << a;
    const char* other[][2] = {
        {"<p>Last Updated: March 5, 2024", "<p>Last Updated: March 6, 2024"},
        {"<p>$99", "<p>$98"},
        {"<p>version 26.1", "<p>version 26.2"},
        {"<p>within 3 days", "<p>within 4 days"},
        {"<p>2026-11-22", "<p>2026-11-23"},
        {"<p>a</p><p>b", "<p>b</p><p>a"},
    };
    for (const auto& [a, b] : other) EXPECT_NE(keys(a), keys(b)) << a;
}

}  // namespace
}  // namespace kit
