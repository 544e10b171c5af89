#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Stories/StoryDocument.h"

namespace app {
namespace {

TEST(StoryDocument, NothingOfAStoryIsMarkup) {
    const QString hostile = "<script>x</script>&amp;\"<b>";
    const StoryDocument document{
        .title = hostile,
        .source = hostile,
        .destination = hostile,
        .author = hostile,
        .published = hostile,
        .link = "https://tide.example/?a=\"><b>",
        .labels = {hostile},
        .text = hostile + '\n' + hostile,
        .wordings = {{.until = hostile, .title = hostile}},
        .credits = {{hostile, "https://a.example/<b>", hostile}},
        .timelineTitle = hostile,
        .timelineFact = hostile,
        .timeline = {{.time = hostile, .outlet = hostile, .title = hostile, .lead = hostile}},
        .made = hostile};
    const auto html = htmlOf(document);
    EXPECT_EQ(html.count("&lt;script&gt;x&lt;/script&gt;&amp;amp;&quot;&lt;b&gt;"), 19);
    EXPECT_FALSE(html.contains("<script")) << html.toStdString();
    EXPECT_FALSE(html.contains("<b>")) << html.toStdString();
}

TEST(StoryDocument, ShowsWhatIsKnownOfAStoryAndNoMore) {
    struct Case {
        StoryDocument document;
        QStringList has, lacks;
    };
    const Case cases[] = {
        {{.title = "Ferry late", .source = "Tide", .published = "16 May 2026, 14:32 CET"},
         {">Ferry late</p>", "16 May 2026, 14:32 CET", "The feed has no excerpt"},
         {"→", ", \u2068", "<a ", "<table", "heading"}},
        {{.title = "Ferry late",
          .source = "Tide",
          .destination = "Harbour",
          .author = "by Ann",
          .link = "https://tide.example/1"},
         {"\u2068Tide\u2069 → \u2068Harbour\u2069, \u2068by Ann\u2069",
          "<a href=\"https://tide.example/1\">https://tide.example/1</a>"},
         {}},
        {{.title = "Ferry late",
          .credits = {{.name = "Pier", .link = "https://pier.example/a)b(c\\"}, {.name = "Quay"}}},
         {"<a href=\"https://pier.example/a%29b%28c%5C\">Pier</a>", "<p>Quay</p>"},
         {}},
        {{.title = "מעבורת מאחרת", .source = "חוף"}, {">מעבורת מאחרת</p>"}, {}},
    };
    for (const auto& [document, has, lacks] : cases) {
        const auto html = htmlOf(document);
        for (const auto& text : has)
            EXPECT_TRUE(html.contains(text)) << text.toStdString() << " in " << html.toStdString();
        for (const auto& text : lacks)
            EXPECT_FALSE(html.contains(text)) << text.toStdString() << " in " << html.toStdString();
    }
}

TEST(StoryDocument, APDFHasItsTitleItsPaperItsLinkAndTextInsteadOfPictures) {
    StoryDocument document{.title = "Ferry late", .link = "https://tide.example/1?a=(b"};
    const auto letter = pdfOf(document, paperOf(QLocale(QLocale::English, QLocale::Canada)));
    EXPECT_TRUE(letter.contains("/MediaBox [0 0 612.000000 792.000000]"));
    const auto pdf = pdfOf(document, paperOf(QLocale(QLocale::German, QLocale::Germany)));
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 595.000000 842.000000]"));
    EXPECT_TRUE(pdf.contains("/URI (https://tide.example/1?a=%28b)"));
    EXPECT_TRUE(pdf.contains("/ToUnicode"));
    // The title is UTF-16 with its mark.
    EXPECT_TRUE(pdf.contains(QByteArray("F\0e\0r\0r\0y\0 \0l\0a\0t\0e", 19)));
    EXPECT_EQ(pdf.count("/Type /Page\n"), 1);
    document.title = QString(2000, u'x');
    document.text = QString(20'000, u'y');
    EXPECT_GT(pdfOf(document, paperOf(QLocale())).count("/Type /Page\n"), 2);
}

}  // namespace
}  // namespace app
