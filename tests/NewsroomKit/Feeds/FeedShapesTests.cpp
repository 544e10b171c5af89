#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "NewsroomKit/Feeds/FeedParser.h"

namespace kit {
namespace {

using Medium = FeedEntry::Medium;

ParsedFeed feedFrom(const std::string& fixture) {
    std::ifstream stream(std::string(BRELL_FIXTURES "/feeds/") + fixture, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_FALSE(bytes.empty()) << fixture;
    auto parsed = parseFeed(bytes);
    EXPECT_TRUE(parsed.has_value()) << fixture;
    return parsed ? std::move(parsed).value() : ParsedFeed{};
}

std::string published(const FeedEntry& entry) {
    return entry.publishedAt ? iso8601Text(*entry.publishedAt) : "";
}

TEST(FeedShapes, PlainTextPostsTakeTheirFirstLineAsTitle) {
    const auto feed = feedFrom("posts-without-title-in-plain-text.rss");
    EXPECT_EQ(feed.title, "@tidewatch.example - Ida Norrby");
    ASSERT_EQ(feed.entries.size(), 2U);
    const auto& first = feed.entries[0];
    EXPECT_EQ(first.title, "The lighthouse got its new lamp today.");
    EXPECT_EQ(first.link, "https://bsky.app/profile/tidewatch.example/post/3lab1");
    EXPECT_EQ(first.guid, "at://did:plc:q7example/app.bsky.feed.post/3lab1");
    EXPECT_EQ(published(first), "2025-08-05T01:40:00Z");
    EXPECT_EQ(first.medium, Medium::post);
    EXPECT_EQ(first.author, std::nullopt);
    EXPECT_TRUE(first.summaryHTML.ends_with("[contains quote post or other embedded content]"));
    EXPECT_EQ(feed.entries[1].title,
              "Whoever painted the buoys in the outer channel pink overnight: the pilots have "
              "voted, nine to two, and they may well…");
}

TEST(FeedShapes, HTMLPostsKeepTheirPictureAndNotItsDescription) {
    const auto feed = feedFrom("posts-without-title-and-with-picture.rss");
    EXPECT_EQ(feed.title, "Olle Brandt");
    ASSERT_EQ(feed.entries.size(), 2U);
    EXPECT_EQ(feed.entries[0].title, "First frost on the pier.");
    EXPECT_EQ(feed.entries[0].medium, Medium::post);
    EXPECT_EQ(feed.entries[0].imageURL, "https://files.fjord.example/media/frost.jpg");
    EXPECT_TRUE(feed.entries[0].summaryHTML.starts_with("<p>First frost"));
    EXPECT_EQ(feed.entries[1].medium, Medium::post) << "a recording in a post is no episode";
}

TEST(FeedShapes, SearchResultsNameTheirPublisher) {
    const auto feed = feedFrom("search-results-naming-publishers.rss");
    ASSERT_EQ(feed.entries.size(), 1U);
    const auto& entry = feed.entries[0];
    EXPECT_EQ(entry.title, "Island ferry orders second electric hull - Harbour Ledger");
    EXPECT_EQ(entry.publisher, "Harbour Ledger");
    EXPECT_EQ(entry.link, "https://news.google.com/rss/articles/CBMiSWludmVudGVk?oc=5");
    EXPECT_EQ(entry.medium, Medium::article);
    EXPECT_EQ(published(entry), "2026-09-25T21:53:00Z");
}

TEST(FeedShapes, VideosTakeTextAndPictureFromTheirMediaGroup) {
    const auto feed = feedFrom("videos-in-media-groups.atom");
    EXPECT_EQ(feed.title, "Knots & Splices");
    ASSERT_EQ(feed.entries.size(), 1U);
    const auto& entry = feed.entries[0];
    EXPECT_EQ(entry.title, "The bowline in ninety seconds");
    EXPECT_EQ(entry.guid, "yt:video:bowline0001");
    EXPECT_EQ(entry.author, "Knots & Splices");
    EXPECT_EQ(entry.summaryHTML, "One knot, no talking.\n\nMusic: the kettle.");
    EXPECT_EQ(entry.imageURL, "https://i2.ytimg.com/vi/bowline0001/hqdefault.jpg");
    EXPECT_EQ(entry.medium, Medium::video);
    EXPECT_EQ(published(entry), "2026-05-04T15:00:06Z");
}

TEST(FeedShapes, ForumThreadsPreferTheirPublicationOverAnEarlierWrittenUpdate) {
    const auto feed = feedFrom("forum-threads-without-link-relation.atom");
    ASSERT_EQ(feed.entries.size(), 1U);
    const auto& entry = feed.entries[0];
    EXPECT_EQ(entry.link, "https://www.reddit.com/r/boats/comments/hull01/what_is_this_hull/");
    EXPECT_EQ(entry.author, "/u/keelhaul");
    EXPECT_EQ(entry.imageURL, "https://preview.redd.it/hull.png?width=640&auto=webp");
    EXPECT_EQ(published(entry), "2026-09-01T22:58:41Z");
}

TEST(FeedShapes, ArticlesInCDATAKeepTheirHTML) {
    const auto feed = feedFrom("articles-in-cdata-without-summary.rss");
    EXPECT_EQ(feed.title, "Stories by Runa Vik on Medium");
    ASSERT_EQ(feed.entries.size(), 1U);
    const auto& entry = feed.entries[0];
    EXPECT_EQ(entry.title, "Why charts < maps & other heresies");
    EXPECT_EQ(entry.author, "Runa Vik");
    EXPECT_EQ(entry.summaryHTML, "");
    EXPECT_TRUE(entry.contentHTML.starts_with("<figure><img alt=\"\" src="));
    EXPECT_EQ(entry.imageURL, "https://cdn-images.example/max/1024/chart.jpeg");
    EXPECT_EQ(published(entry), "2026-05-18T09:12:33Z");
}

TEST(FeedShapes, EpisodesAreAudioWithTheirOwnImageUnderAnyPrefix) {
    const auto feed = feedFrom("podcast-with-episode-images.rss");
    ASSERT_EQ(feed.entries.size(), 1U);
    const auto& entry = feed.entries[0];
    EXPECT_EQ(entry.medium, Medium::audio);
    EXPECT_EQ(entry.imageURL, "https://ballast.example/41.png");
    EXPECT_EQ(entry.author, "crew@ballast.example (Siv and Tor)");
    EXPECT_EQ(entry.summaryHTML, "<p>Two hours on hemp.</p>");
}

TEST(FeedShapes, LinkedListsPointToTheArticleTheyTalkAbout) {
    const auto feed = feedFrom("linked-list-with-foreign-alternates.atom");
    EXPECT_EQ(feed.title, "Quiet Anchor");
    ASSERT_EQ(feed.entries.size(), 2U);
    EXPECT_EQ(feed.entries[0].link, "https://shipyard.example/notes/work?a=1&b=2");
    EXPECT_EQ(feed.entries[0].contentHTML, "<p>Long, frank, <em>good</em>.</p>");
    EXPECT_EQ(published(feed.entries[0]), "2026-10-06T21:14:17Z");
}

TEST(FeedShapes, AnAtomSourceAndXHTMLNeverFillTheEntry) {
    const auto feed = feedFrom("linked-list-with-foreign-alternates.atom");
    ASSERT_EQ(feed.entries.size(), 2U);
    const auto& entry = feed.entries[1];
    EXPECT_EQ(entry.title, "★ On Harbours");
    EXPECT_EQ(entry.link, "https://quietanchor.example/2026/10/on_harbours");
    EXPECT_EQ(entry.guid, "tag:quietanchor.example,2026://1.102");
    EXPECT_EQ(entry.publisher, std::nullopt);
    EXPECT_EQ(entry.contentHTML,
              "<title>Not the title</title><p class=\"lead\">Ropes &amp; tar &lt;always&gt;.<br>"
              "<img src=\"https://quietanchor.example/h.png?a=1&amp;b=2\" "
              "alt=\"&quot;H&quot;\"></p>");
    EXPECT_EQ(entry.imageURL, "https://quietanchor.example/h.png?a=1&b=2");
}

TEST(FeedShapes, ItemsBesideTheChannelAreRead) {
    const auto feed = feedFrom("items-beside-the-channel.rdf");
    EXPECT_EQ(feed.title, "Werft-Nachrichten");
    ASSERT_EQ(feed.entries.size(), 1U);
    const auto& entry = feed.entries[0];
    EXPECT_EQ(entry.title, "Neue Kräne für das Südbecken");
    EXPECT_EQ(entry.summaryHTML, "Zwei Stück.");
    EXPECT_EQ(entry.author, "Jörg Löw");
    EXPECT_EQ(published(entry), "2026-07-03T09:46:40Z");
}

}  // namespace
}  // namespace kit
