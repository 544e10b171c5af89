#include <gtest/gtest.h>

#include <chrono>

#include "NewsroomKit/Ingestion/StoryConversion.h"
#include "NewsroomKit/Stories/StoryIdentity.h"

namespace kit {
namespace {

using Medium = FeedEntry::Medium;

const Instant kNow = parseISO8601("2026-11-20T12:00:00Z").value();

NewsSource blog() {
    return {.id = "link-blog",
            .name = "Link Blog",
            .feedURL = "https://blog.example/feed",
            .siteURL = "https://blog.example/",
            .kind = NewsSource::Kind::publisher};
}

NewsSource search() {
    auto source = blog();
    source.format = NewsSource::Format::googleNews;
    return source;
}

FeedEntry entry(std::string title, std::string link = "https://blog.example/a") {
    return {.title = std::move(title), .link = std::move(link)};
}

class StoryConversionTest : public ::testing::Test {
protected:
    std::optional<Story> convert(const FeedEntry& item, const NewsSource& source = blog()) {
        return StoryConversion(links_).story(item, source, kNow);
    }

    CanonicalLinks links_;
};

TEST_F(StoryConversionTest, AnEntryWithoutHeadlineOrWebLinkIsRefused) {
    EXPECT_FALSE(convert(entry("")));
    EXPECT_FALSE(convert(entry("<b> </b>&nbsp;")));
    EXPECT_FALSE(convert(entry("★")) && convert(entry("→")));
    for (const char* link :
         {"", "tag:blog.example,2026:1", "ftp://blog.example/a", "https://", "/relative"}) {
        EXPECT_FALSE(convert(entry("Title", link))) << link;
    }
    auto byGuid = entry("Title", "");
    byGuid.guid = "HTTP://Blog.example/a/#x";
    ASSERT_TRUE(convert(byGuid));
    EXPECT_EQ(convert(byGuid)->link, "https://blog.example/a");
}

TEST_F(StoryConversionTest, AnAbsurdLinkIsRefusedBeforeItCostsTime) {
    std::string items = "https://blog.example/?";
    for (int i = 0; i < 1'500'000; ++i) items += "b&a&";
    std::string letters = "https://";
    for (int i = 0; i < 1'000'000; ++i) letters += "ü";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(convert(entry("Title", items)));
    EXPECT_FALSE(convert(entry("Title", letters)));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST_F(StoryConversionTest, NothingIsConvertedBeyondTheLimitOfWork) {
    const StoryConversion conversion(links_);
    const std::vector<FeedEntry> entries{entry("One"), entry("Two", "https://blog.example/b")};
    EXPECT_EQ(conversion.stories(entries, blog(), kNow).size(), 2u);
    const WorkLimit reached({}, WorkLimit::Clock::now());
    EXPECT_TRUE(conversion.stories(entries, blog(), kNow, reached).empty());
}

TEST_F(StoryConversionTest, DecorationsAreCutFromTheHeadlineOnceEach) {
    struct Case {
        const char* title;
        const char* cleaned;
    };
    const Case cases[] = {
        {"A link →", "A link"},     {"A link→", "A link"},
        {"An essay ★", "An essay"}, {"Both ★ →", "Both"},
        {"Bent ↦", "Bent"},         {"★ Own article", "Own article"},
        {"★No space", "★No space"}, {"<em>Two</em>\n  lines &amp; more", "Two lines & more"},
        {"Twice → →", "Twice"},
    };
    for (const auto& c : cases) EXPECT_EQ(convert(entry(c.title))->title, c.cleaned) << c.title;
}

TEST_F(StoryConversionTest, ASearchResultLosesItsPublisherAndHasNoSummaryNorCredits) {
    auto item =
        entry("Chips are scarce - Example Wire", "https://news.google.com/rss/articles/CBM?oc=5");
    item.publisher = "Example Wire";
    item.summaryHTML = "<p>According to <a href='https://www.reuters.com/x'>Reuters</a></p>";
    const auto story = convert(item, search());
    ASSERT_TRUE(story);
    EXPECT_EQ(story->title, "Chips are scarce");
    EXPECT_EQ(story->summary, "");
    EXPECT_FALSE(story->destinationName);
    EXPECT_TRUE(story->credits.empty());
    EXPECT_EQ(story->id, storyID("https://news.google.com/rss/articles/CBM?oc=5"));

    item.publisher = "Wire";
    EXPECT_EQ(convert(item, search())->title, "Chips are scarce - Example Wire");
    item.title = " - Wire";
    EXPECT_EQ(convert(item, search())->title, "- Wire");
    item.title = "Arrow stays → - Wire";
    EXPECT_EQ(convert(item, search())->title, "Arrow stays →");
}

TEST_F(StoryConversionTest, AForeignLinkIsAStoryOfTheSourceThatPointsToIt) {
    const auto own = convert(entry("T", "https://sub.blog.example/a?utm_source=rss"));
    EXPECT_FALSE(own->destinationName);
    EXPECT_EQ(own->id, storyID("https://sub.blog.example/a"));
    const auto foreign = convert(entry("T", "https://www.theverge.com/a/"));
    EXPECT_EQ(foreign->destinationName, "The Verge");
    EXPECT_EQ(foreign->id, storyID("link-blog|https://www.theverge.com/a"));
}

TEST_F(StoryConversionTest, TheExcerptLosesTheSourcesNameAndARepeatedHeadline) {
    struct Case {
        const char* html;
        const char* summary;
    };
    const Case cases[] = {
        {"<p>LINK BLOG—: News today.</p>", "News today."},
        {"Link Blog. - | News", "News"},
        {"Link Blog News", "Link Blog News"},
        {"Link Blogs: News", "Link Blogs: News"},
        {"Link Blog", "Link Blog"},
        {"Some <b>title</b>", ""},
    };
    for (const auto& c : cases) {
        auto item = entry("Some title");
        item.summaryHTML = c.html;
        EXPECT_EQ(convert(item)->summary, c.summary) << c.html;
    }
    auto item = entry("Some title");
    item.contentHTML = "<p>Only content.</p>";
    EXPECT_EQ(convert(item)->summary, "Only content.");
}

TEST_F(StoryConversionTest, TheExcerptLosesALastLineThatLeadsToTheItemAndItsSite) {
    auto item = entry("Lampe", "https://blog.example/lampe/");
    item.summaryHTML =
        "<p>Neues.</p><p><a href='https://blog.example/lampe'>Lampe</a> stand zuerst bei "
        "<a href='https://blog.example'>Blog</a>.</p>";
    EXPECT_EQ(convert(item)->summary, "Neues.");
    item.link.clear();
    item.guid = "https://blog.example/lampe/";
    EXPECT_EQ(convert(item)->summary, "Neues.");
}

TEST_F(StoryConversionTest, ASummaryThatRepeatsAListOfLinksIsNone) {
    auto item = entry("Chart 4.1");
    item.summaryHTML = "Get the chartRead the notes";
    item.contentHTML =
        "<p><a href='/a'>Get the chart</a></p><p><a href='/b'>Read the notes</a></p>";
    EXPECT_EQ(convert(item)->summary, "");
    item.contentHTML += "New depths.";
    EXPECT_EQ(convert(item)->summary, "Get the chartRead the notes");
}

TEST_F(StoryConversionTest, APostKeepsMoreOfItsTextThanAnArticle) {
    std::string text;
    for (int i = 0; i < 400; ++i) text += "word" + std::to_string(i) + " ";
    auto item = entry("Title");
    item.summaryHTML = text;
    EXPECT_LE(convert(item)->summary.size(), 423u);
    item.medium = Medium::post;
    EXPECT_GT(convert(item)->summary.size(), 900u);
}

TEST_F(StoryConversionTest, NoStoryIsFromTheFuture) {
    auto item = entry("T");
    EXPECT_EQ(convert(item)->publishedAt, kNow);
    item.publishedAt = kNow + std::chrono::hours(1);
    EXPECT_EQ(convert(item)->publishedAt, kNow);
    item.publishedAt = kNow - std::chrono::hours(1);
    EXPECT_EQ(convert(item)->publishedAt, kNow - std::chrono::hours(1));
}

TEST_F(StoryConversionTest, AuthorsAreCleanedOrDropped) {
    struct Case {
        std::string author;
        std::optional<std::string> cleaned;
    };
    const Case cases[] = {
        {"desk@blog.example (Jo Writer)", "Jo Writer"},
        {" <a href='x'>Jo</a>\nWriter ", "Jo Writer"},
        {"Jo (Writer)", "Jo (Writer)"},
        {"jo@blog.example ( )", std::nullopt},
        {"LINK blog", std::nullopt},
        {"jo@blog.example", std::nullopt},
        {"mailto:jo@blog.example, desk@blog.example", std::nullopt},
        {"https://blog.example/jo", std::nullopt},
        {"www.blog.example", std::nullopt},
        {"jo@blog.example (www.blog.example)", std::nullopt},
        {"Jo Writer, jo@blog.example", "Jo Writer, jo@blog.example"},
        {"@jo@social.example", "@jo@social.example"},
        {"Blog.example", "Blog.example"},
        {std::string(80, 'x'), std::string(80, 'x')},
        {std::string(81, 'x'), std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& c : cases) {
        auto item = entry("T");
        item.author = c.author;
        EXPECT_EQ(convert(item)->author, c.cleaned) << c.author;
    }
}

TEST_F(StoryConversionTest, TheKindComesFromTheMediumTheCategoryOrTheWords) {
    auto item = entry("iPad deals today");
    EXPECT_EQ(convert(item)->kind, StoryKind::deal);
    item.medium = Medium::audio;
    EXPECT_EQ(convert(item)->kind, StoryKind::podcast);
    item.medium = Medium::video;
    EXPECT_EQ(convert(item)->kind, StoryKind::video);
    item.medium = Medium::article;
    auto social = blog();
    social.category = NewsSource::Category::social;
    EXPECT_EQ(convert(item, social)->kind, StoryKind::post);
    auto apple = blog();
    apple.kind = NewsSource::Kind::apple;
    EXPECT_EQ(convert(entry("A rumor"), apple)->sourcing, Sourcing::confirmed);
    EXPECT_EQ(convert(entry("A rumor"))->sourcing, Sourcing::rumor);
}

TEST_F(StoryConversionTest, PostNumbersAreReadOnTheOwnBlogOnly) {
    struct Case {
        const char* guid;
        std::optional<std::int64_t> number;
    };
    const Case cases[] = {
        {"https://blog.example/?p=123", 123},
        {"https://blog.example/?post_type=x&p=7&p=8", 7},
        {"https://blog.example/?p=12x", std::nullopt},
        {"https://blog.example/?q=1", std::nullopt},
        {"https://blog.example/?p=99999999999999999999", std::nullopt},
        {"/?p=12#x", 12},
        {"123", std::nullopt},
    };
    auto own = blog();
    own.kind = NewsSource::Kind::firstParty;
    for (const auto& c : cases) {
        auto item = entry("T");
        item.guid = c.guid;
        EXPECT_EQ(convert(item, own)->wordpressID, c.number) << c.guid;
        EXPECT_FALSE(convert(item)->wordpressID);
    }
}

TEST_F(StoryConversionTest, OnlyPicturesFromTheWebAreKept) {
    auto item = entry("T");
    item.imageURL = "data:image/png;base64,AAAA";
    EXPECT_FALSE(convert(item)->imageURL);
    item.imageURL = "https://blog.example/p.jpg";
    EXPECT_EQ(convert(item)->imageURL, "https://blog.example/p.jpg");
}

}  // namespace
}  // namespace kit
