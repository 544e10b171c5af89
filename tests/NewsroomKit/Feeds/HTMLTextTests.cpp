#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "NewsroomKit/Feeds/ImageExtractor.h"
#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

using namespace std::string_literals;

std::string repeated(std::string_view text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) result += text;
    return result;
}

TEST(HTMLText, BecomesLinesOfPlainText) {
    const std::pair<std::string, std::string_view> cases[] = {
        {"<p>One</p><p>Two <b>b</b>old</p>", "One\nTwo bold"},
        {"a<br>b<BR/>c<hr class='x'>d", "a\nb\nc\nd"},
        {"<ul><li>one<li>two</ul>three", "one\ntwo\nthree"},
        {"<tr><td>a</td><td>b</td></tr>", "a b"},
        {" \n a \t\r\n b&nbsp;&#8201;c\u3000d ", "a b c d"},
        {"2 < 3 && 4 > 3, x <3", "2 < 3 && 4 > 3, x <3"},
        {"a<!-- <p>no</p> -- > -->b<!---->c<!doctype html>d<?php no ?>e", "abcde"},
        {"a<!-- never closed <b>b</b>", "a"},
        {"a<![CDATA[<b>b</b> c]]>d ]]> e", "ab cd ]]> e"},
        {"<a href=\"x>y\" title='<b>'>a</a>b", "ab"},
        {"<a href=\"x>a b</a> c", "a b c"},
        {"<p>it's</p><a title=it's>b</a>", "it's\nb"},
        {"text <a href=\"http://cut.example/of", "text"},
        {"a\0b\x01"s, "ab"},
        {"bad \xFF\xC3 utf-8", "bad \xFF\xC3 utf-8"},
        {"", ""},
    };
    for (const auto& [html, text] : cases) EXPECT_EQ(plainText(html), text) << html;
}

TEST(HTMLText, DecodesReferencesExactlyOnce) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"&lt;b&gt; &amp;amp; &quot;x&quot; &apos;y&apos;", "<b> &amp; \"x\" 'y'"},
        {"&eacute;&Eacute;&hearts;&fnof;&AElig;", "éÉ♥ƒÆ"},
        {"&#233;&#xE9;&#XE9;&#x1F600;", "ééé😀"},
        {"&#128;&#145;&#150;&#x99;\u0092", "€‘–™’"},
        {"&#129;&#0;&#7;x", "x"},
        {"&#xD800;&#1114112;&#99999999999999999999;", "\uFFFD\uFFFD\uFFFD"},
        {"AT&T &unknown; &; &#; &#x; &#12a; &amp", "AT&T &unknown; &; &#; &#x; &#12a; &amp"},
        {"&amp;lt;", "&lt;"},
    };
    for (const auto& [html, text] : cases) {
        EXPECT_EQ(plainText(html), text) << html;
    }
    EXPECT_EQ(decodedEntities("a&amp;b&#x20;<c>&x"), "a&b <c>&x");
}

TEST(HTMLText, HeadlinesStandOnOneLine) {
    EXPECT_EQ(cleanHeadline(" <p>Fish &amp;\n<i>chips</i></p><p>again</p> "), "Fish & chips again");
    EXPECT_EQ(cleanHeadline("<img src='a'> &nbsp;"), "");
}

TEST(Excerpt, LeavesOutElementsThatHoldNoProse) {
    EXPECT_EQ(excerpt("<figure><img><figcaption>No</figcaption></figure><p>Yes</p>"
                      "<SCRIPT>if (a < b) no();</script ><style>p{}</style>So",
                      420),
              "Yes\nSo");
    EXPECT_EQ(excerpt("Before <form action='x'>everything after", 420), "Before");
}

TEST(Excerpt, LeavesOutWhatTheBlogEngineWroteBelowTheText) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"<p>Text.</p><p>The post <a>The post office</a> appeared first on <a>Site</a>.</p>",
         "Text."},
        {"<p>Text [&#8230;]</p>\n<p>The post A first appeared on B.</p>", "Text […]"},
        {"Text. The post A appeared first on B.", "Text."},
        {"The post went up at noon.", "The post went up at noon."},
        {"Text. The post appeared late.", "Text. The post appeared late."},
        {"<p>Text&hellip; <a>Continue reading <span>&#8220;Title. And more&#8221;</span></a></p>",
         "Text…"},
        {"<p>Text.</p><p><a>Continue reading</a></p><p>The post A appeared first on B.</p>",
         "Text."},
        {"Text. Continue reading →", "Text."},
        {"<a>Continue reading</a> Rest of the text.", "Rest of the text."},
        {"Continue reading the log. It is worth it.", "Continue reading the log. It is worth it."},
    };
    for (const auto& [html, text] : cases) EXPECT_EQ(excerpt(html, 420), text) << html;
}

struct EndingCase {
    std::string_view html;
    std::string_view text;
};

/// The item whose excerpt is taken.
constexpr std::string_view item = "https://blog.example/2026/lamp/";

class ExcerptEnding : public testing::TestWithParam<EndingCase> {};

TEST_P(ExcerptEnding, IsLeftOutWhenItIsNoPartOfTheText) {
    EXPECT_EQ(excerpt(GetParam().html, 420, item), GetParam().text) << GetParam().html;
}

INSTANTIATE_TEST_SUITE_P(
    Marks, ExcerptEnding,
    testing::Values(
        EndingCase{
            "<p>Text.</p><div><a href='https://blog.example/linked/1'>&nbsp;★&nbsp;</a></div>",
            "Text."},
        EndingCase{"<p>Text.</p><p>→</p><p>* * *</p>", "Text."}, EndingCase{"<p>★</p>", ""},
        EndingCase{"<p>Text with ★</p>", "Text with ★"},
        EndingCase{"<p>Text.</p><p>42</p>", "Text.\n42"}, EndingCase{"<p>本文</p>", "本文"}));

INSTANTIATE_TEST_SUITE_P(
    Invitations, ExcerptEnding,
    testing::Values(
        EndingCase{"<p>Text.</p><p><a href='x'>Read the full story at The Daily Buoy.</a></p>",
                   "Text."},
        EndingCase{"<p>Text.</p><p>Read the full story at <a href='x'>The Daily Buoy</a>.</p>",
                   "Text."},
        EndingCase{"Text. Read the full article here", "Text."},
        EndingCase{"<p>Text [&#8230;] <a href='x'>Read More &raquo;</a></p>", "Text […]"},
        EndingCase{"<p>Text.</p><p>Read more</p>", "Text."},
        EndingCase{"Text. Read more at The Daily Buoy", "Text."},
        EndingCase{"Text. (more&#8230;)", "Text."},
        EndingCase{"<p>Text.</p><p><a href='x'>&infin; Permalink</a></p>", "Text."},
        EndingCase{"<p>Text.</p><p><a href='x'>Weiterlesen</a></p>", "Text."},
        EndingCase{"<p>Texte…</p><p><a href='x'>Lire la suite de l’article</a></p>", "Texte…"},
        EndingCase{"<p>Text … <a class='btn more-link' href='x'>Fortsæt <i>Lampen</i></a></p>",
                   "Text …"},
        EndingCase{
            "<p>Text.</p><a href='http://www.blog.example/2026/lamp?utm_source=rss'>Tovább</a>",
            "Text."},
        EndingCase{"Texto... Leia isto no <a href='https://blog.example/2026/lamp'>Farol</a>",
                   "Texto..."},
        EndingCase{"<p>Text.</p><p><a href='x'>Read more</a></p><p>★</p>", "Text."}));

// clang-format off
INSTANTIATE_TEST_SUITE_P(SiteFooters, ExcerptEnding, testing::Values(
    EndingCase{"<p>Text.</p><p>Der Beitrag <a href='https://blog.example/2026/lamp/'>Lampe</a> erschien "
               "zuerst auf <a href='https://blog.example'>Blog</a>.</p>", "Text."},
    EndingCase{"<p><a href='https://blog.example/2026/lamp/'>Lampa</a> ukazała się na "
               "<a href='https://blog.example'>Blog</a>.</p>", ""},
    EndingCase{"Text.<br/><br/>This article, \"<a href='https://blog.example/2026/lamp/'>Lamp</a>\" first "
               "appeared on <a href='https://blog.example'>Blog</a><br/><br/><a href='x'>Discuss this "
               "article</a> in our forums<br/>", "Text."}));
// clang-format on

INSTANTIATE_TEST_SUITE_P(
    TextThatStays, ExcerptEnding,
    testing::Values(
        EndingCase{"You can read more at the library.", "You can read more at the library."},
        EndingCase{"<p>One.</p><p>Read more books this year.</p>",
                   "One.\nRead more books this year."},
        EndingCase{"Some want less. More!", "Some want less. More!"},
        EndingCase{"<p>One.</p><p>Continue reading the log. It is long.</p>",
                   "One.\nContinue reading the log. It is long."},
        EndingCase{"<p>Seen at <a href='https://blog.example/2026/lamp/'>the blog</a>.</p>",
                   "Seen at the blog."},
        EndingCase{"<p><a href='https://blog.example/2026/lamp/'>The lamp</a> is new (via <a "
                   "href='https://x.example/'>X</a>).</p>",
                   "The lamp is new (via X)."},
        EndingCase{
            "“We ... are done”, says <a href='https://blog.example/2026/lamp'>the keeper</a>",
            "“We ... are done”, says the keeper"},
        EndingCase{"<p>One.</p><p>Photo by <a href='https://pics.example/@ida'>Ida</a> on <a "
                   "href='https://pics.example'>Pics</a></p>",
                   "One.\nPhoto by Ida on Pics"},
        EndingCase{"<p>One.</p><p>Mail <a href='x'>the desk</a></p>", "One.\nMail the desk"}));

TEST(Excerpt, IsNoneWhenTheTextIsNothingButTheWordsOfLinks) {
    EXPECT_EQ(excerpt("<a href='a'>View downloads</a><a href='b'>View release notes</a>", 420), "");
    EXPECT_EQ(excerpt("<p><a href='a'>Comments</a> | <a href='b'>Share</a></p>", 420), "");
    EXPECT_EQ(excerpt("<a href='a'>Notes</a> for sailors", 420), "Notes for sailors");
    const auto teaser = repeated("The ferry left on time, for once. ", 6);
    EXPECT_NE(excerpt("<a href='a'>" + teaser + "</a>", 420), "") << "a linked text is a text";
}

// clang-format off
TEST(Excerpt, LeavesOutASiteFooterInAnyLanguageWithoutKnowingTheItem) {
    EXPECT_EQ(excerpt("<p>Texte.</p><p>L’article <a href='https://b.example/le/phare/'>Phare</a> est apparu en "
                      "premier sur <a href='https://b.example/le'>Le blog</a>.</p>", 420), "Texte.");
    EXPECT_EQ(excerpt("<p>Voir <a href='https://a.example/x'>A</a> et <a href='https://b.example'>B</a>.</p>",
                      420), "Voir A et B.");
}
// clang-format on

struct CutCase {
    std::string html;
    std::size_t limit;
    std::string_view text;
};

TEST(Excerpt, EndsAtTheLastBoundaryThatFits) {
    const CutCase cases[] = {
        {"One two three.", 14, "One two three."},
        {"One two three four", 18, "One two three four"},
        {"One two three four", 17, "One two three…"},
        {"One two three four", 14, "One two three…"},
        {"One two three four", 13, "One two…"},
        {"One two. Three four five", 19, "One two. Three…"},
        {"One two. Three four", 8, "One two."},
        {"One two. Three four", 9, "One two."},
        {"He said \"stop!\" Then left", 15, "He said \"stop!\""},
        {"Ten vs. eleven", 8, "Ten vs.…"},
        {"One, two, three", 9, "One, two…"},
        {"<p>A headline</p><p>Then more text</p>", 12, "A headline"},
        {"<p>A headline</p><p>* * *</p><p>Then more text</p>", 20, "A headline"},
        {"Donaudampfschifffahrt", 6, "Donau…"},
        {"One two", 1, "…"},
        {"One two", 0, ""},
        {"One👩‍👩‍👧‍👦👩‍👩‍👧‍👦👩‍👩‍👧‍👦 two", 5,
         "One👩‍👩‍👧‍👦…"},
        {"e\u0301e\u0301e\u0301e\u0301", 3, "e\u0301e\u0301…"},
        {"港口今天开放。渡轮明天恢复航行", 9, "港口今天开放。…"},
    };
    for (const auto& [html, limit, text] : cases) {
        const auto cut = excerpt(html, limit);
        EXPECT_EQ(cut, text) << html << " at " << limit;
        EXPECT_LE(characterCount(cut), limit) << html;
    }
}

TEST(Excerpt, OfALongArticleIsTheSameAsOfItsBeginning) {
    const auto paragraph =
        "<p>The ferry left on time, for once, and nobody was there to see it.</p>"s;
    EXPECT_EQ(excerpt(repeated(paragraph, 5'000), 420), excerpt(repeated(paragraph, 20), 420));
}

TEST(PostTitle, IsTheFirstLineOfTheText) {
    const std::pair<std::string, std::string_view> cases[] = {
        {"<p>First line.</p><p>Second.</p>", "First line."},
        {"<p></p><p>First\nline</p>", "First line"},
        {"First\nsecond &amp; third", "First"},
        {"<script>no()</script>\n", ""},
        {repeated("0123456789 ", 20),
         "0123456789 0123456789 0123456789 0123456789 0123456789 "
         "0123456789 0123456789 0123456789 0123456789 0123456789…"},
    };
    for (const auto& [html, title] : cases) EXPECT_EQ(postTitle(html), title) << html;
}

TEST(HTMLText, HostileTextsAreReadInOnePass) {
    // Far more than one pass takes under a sanitizer, far less than square growth.
    constexpr auto patience = std::chrono::seconds(10);
    // clang-format off
    for (const std::string_view piece :
         {"<", "<a", "<a href=\"", "<a href='x\">", "<a href='x'>★</a><br>", "a <img src='http://stats.a/' width=", "&", "&#", "<!--", "<![CDATA[", "]]>", "<script",
          "<script>", "<script></script", "</form  ", "The post ", "Continue reading ", "<img",
          "<img src=", "<img src='", "\u0301"}) {
        // clang-format on
        const auto html = repeated(piece, static_cast<int>(2'000'000 / piece.size()));
        const auto start = std::chrono::steady_clock::now();
        EXPECT_LE(characterCount(excerpt(html, 420)), 420U) << piece;
        EXPECT_LE(characterCount(postTitle(html)), 120U) << piece;
        EXPECT_LE(plainText(html).size(), html.size() * 3) << piece;
        EXPECT_LE(excerpt(html, html.size()).size(), html.size() * 3) << piece;
        AddressBase base;
        firstPicture(html, base);
        EXPECT_LT(std::chrono::steady_clock::now() - start, patience) << piece;
    }
}

}  // namespace
}  // namespace kit
