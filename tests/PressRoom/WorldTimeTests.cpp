#include <gtest/gtest.h>

#include "PressRoom/Server/Conditional.h"
#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

constexpr auto macrumors = "https://www.macrumors.com/macrumors.xml";

bool holds(const Response& response, std::string_view text) {
    return response.body.find(text) != std::string::npos;
}

TEST(WorldTime, AStoryIsServedFromTheMinuteItIsDue) {
    SteeredWorld world(sampleWorld());
    const std::string headline = "Apple Seeds Third Betas of iOS 27.2";
    world.passTo(23);
    EXPECT_FALSE(holds(world.get(macrumors), headline));
    world.passTo(24);
    EXPECT_TRUE(holds(world.get(macrumors), headline));
}

TEST(WorldTime, AHeadlineIsReplacedWhenItsRevisionIsDueAndKeepsItsAddress) {
    SteeredWorld world(sampleWorld());
    const auto feed = "https://9to5mac.com/feed/";
    world.passTo(149);
    EXPECT_TRUE(holds(world.get(feed), "iOS 27.2 beta 3: everything new so far"));
    world.passTo(150);
    EXPECT_FALSE(holds(world.get(feed), "iOS 27.2 beta 3: everything new so far"));
    EXPECT_TRUE(
        holds(world.get(feed), "iOS 27.2 beta 3: everything new, including AirPods captions"));
    EXPECT_TRUE(holds(world.get(feed), "/ios-27-2-beta-3-everything-new-so-far/"));
}

TEST(WorldTime, EqualAnchorsGiveEqualBytesAndTagsChangeOnlyWithTheStories) {
    SteeredWorld world(sampleWorld());
    const SteeredWorld restarted(sampleWorld());
    const auto tag = [&](const SteeredWorld& from) {
        return SteeredWorld::headerOf(from.get(macrumors), "ETag");
    };
    const auto first = tag(world);
    EXPECT_EQ(first, tag(restarted));
    world.passTo(23);
    EXPECT_EQ(first, tag(world));
    world.passTo(24);
    EXPECT_NE(first, tag(world));
}

TEST(WorldTime, AnUnchangedFeedIsAnswered304ForEitherValidator) {
    SteeredWorld world(sampleWorld());
    const auto fresh = world.get(macrumors);
    const auto tag = SteeredWorld::headerOf(fresh, "ETag");
    const auto modified = SteeredWorld::headerOf(fresh, "Last-Modified");
    EXPECT_EQ(modified, httpDate(anchor - std::chrono::minutes(22)));
    EXPECT_EQ(world.get(macrumors, {{"if-none-match", tag}}).status, 304);
    EXPECT_EQ(world.get(macrumors, {{"if-modified-since", modified}}).status, 304);
    world.passTo(24);
    EXPECT_EQ(world.get(macrumors, {{"if-none-match", tag}}).status, 200);
    EXPECT_EQ(world.get(macrumors, {{"if-modified-since", modified}}).status, 200);
}

TEST(WorldTime, SpeedMultipliesWhatPassedSinceTheAnchor) {
    auto real = std::chrono::system_clock::time_point(anchor + std::chrono::minutes(2));
    const WorldClock clock{.anchor = anchor, .speed = 30, .realTime = [&] { return real; }};
    EXPECT_EQ(clock.now(), anchor + std::chrono::hours(1));
    real = anchor - std::chrono::seconds(10);
    EXPECT_EQ(clock.now(), anchor - std::chrono::minutes(5));
}

TEST(WorldTime, FaultySourcesFailInTheirKnownWays) {
    SteeredWorld world(sampleWorld());
    const auto webkit = world.get("https://webkit.org/feed/");
    EXPECT_EQ(webkit.status, 404);
    EXPECT_FALSE(holds(webkit, "application/rss+xml"))
        << "the error page must not lead back to the feed";

    const auto wall = world.get(
        "https://news.google.com/rss/search?q=Apple+site:thelec.net+when:7d"
        "&hl=en-US&gl=US&ceid=US:en");
    EXPECT_EQ(wall.status, 200);
    EXPECT_EQ(SteeredWorld::headerOf(wall, "Content-Type"), "text/html; charset=utf-8");

    const auto busy = world.get("https://feeds.twit.tv/mbw.xml");
    EXPECT_EQ(busy.status, 503);
    EXPECT_EQ(SteeredWorld::headerOf(busy, "Retry-After"), "900");
    world.passTo(60);
    EXPECT_EQ(world.get("https://feeds.twit.tv/mbw.xml").status, 200);
}

}  // namespace
}  // namespace pressroom::testing
