#include <gtest/gtest.h>

#include "NewsroomKit/Links/RedirectLink.h"
#include "NewsroomKit/Links/RedirectPage.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "PressRoom/World/Address.h"
#include "PressRoom/World/Platforms/Platforms.h"
#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

TEST(Pages, EveryHomePageNamesAFeedThatAnswers) {
    const auto sources = sampleWorld();
    const SteeredWorld world(sources);
    for (const auto& source : sources) {
        SCOPED_TRACE(source.id);
        const auto page = world.get(source.home);
        EXPECT_EQ(page.status, 200);
        const auto at = page.body.find("<link rel=\"alternate\" type=\"application/");
        ASSERT_NE(at, std::string::npos);
        EXPECT_NE(page.body.find("href=\"https://", at), std::string::npos);
    }
}

TEST(Pages, EveryStoryOfTheSampleLeadsToAPageOnceItIsDue) {
    SteeredWorld world(sampleWorld());
    const auto& published = world.handler().world();
    for (const int minutes : {0, 240}) {
        world.passTo(minutes);
        const auto now = anchor + std::chrono::minutes(minutes);
        for (const auto& source : published.sources()) {
            for (const auto& item : published.items(source)) {
                if (item.appears > now) continue;
                EXPECT_EQ(world.get(item.link).status, 200) << item.link;
            }
        }
    }
}

TEST(Pages, AStoryThatIsNotDueHasNoPageYet) {
    std::string page = "https://www.bloomberg.com/news/articles/2026-11-18/cheaper-vision";
    SteeredWorld world(sampleWorld());
    EXPECT_EQ(world.get(page).status, 404);
    world.passTo(45);
    EXPECT_EQ(world.get(page).status, 200);
    page.append("?utm_source=x&fbclid=1");
    EXPECT_EQ(world.get(page).status, 200) << "tracking items name no other page";
}

TEST(Pages, ARedirectLinkTellsItsArticleToASignedRequestOnly) {
    const SteeredWorld world(sampleWorld());
    const auto& published = world.handler().world();
    std::size_t opaque = 0;
    for (const auto& source : published.sources()) {
        if (source.platform != Platform::googleNews) continue;
        for (const auto& item : published.items(source)) {
            const auto link = googleNewsLink(item);
            const auto identifier = kit::redirectIdentifier(link).value();
            if (const auto address = kit::addressInIdentifier(identifier)) {
                EXPECT_EQ(address, item.link);
                continue;
            }
            ++opaque;
            if (item.appears > anchor) continue;
            auto signature = kit::readRedirectPage(world.get(link).body).signature.value();
            const auto ask = [&] {
                return world.handler()({.method = "POST",
                                        .host = "news.google.com",
                                        .target = "/_/DotsSplashUi/data/batchexecute",
                                        .body = kit::batchRequestBody(signature)});
            };
            EXPECT_EQ(kit::articleInBatchAnswer(ask().body), kit::canonicalLink(item.link));
            signature.timestamp = "1";
            EXPECT_EQ(ask().status, 400);
        }
    }
    EXPECT_GT(opaque, 0u);
}

TEST(Pages, ABareHostSendsReadersToItsWwwName) {
    const SteeredWorld world(sampleWorld());
    const auto moved = world.get("https://macrumors.com/");
    EXPECT_EQ(moved.status, 301);
    EXPECT_EQ(SteeredWorld::headerOf(moved, "Location"), "https://www.macrumors.com/");
}

TEST(Pages, UnknownAddressesAndOtherMethodsAreRefused) {
    const SteeredWorld world(sampleWorld());
    EXPECT_EQ(world.get("https://nowhere.example/<script>").status, 404);
    EXPECT_EQ(world.get("https://nowhere.example/<script>").body.find("<script>"),
              std::string::npos);
    EXPECT_EQ(
        world.handler()({.method = "POST", .host = "www.macrumors.com", .target = "/"}).status,
        405);
}

TEST(Pages, AddressesAreFoundHoweverTheyAreEncoded) {
    const std::pair<std::string, std::string> same[] = {
        {"https://h.example/a%20b/", "https://h.example/a b"},
        {"https://h.example/s?q=Apple+site%3Aft.com", "https://h.example/s?q=Apple+site:ft.com"},
        {"https://h.example/a?utm_source=x&b=1&&fbclid=2", "https://h.example/a?b=1"},
        {"https://h.example", "https://h.example/"},
        {"https://h.example/100%", "https://h.example/100%"},
    };
    for (const auto& [a, b] : same) EXPECT_EQ(lookupKey(a), lookupKey(b));
    EXPECT_NE(lookupKey("https://h.example/a?b=1"), lookupKey("https://h.example/a?b=2"));
}

TEST(Pages, ABlueskyHandleIsRedirectedToThePermanentIdentifier) {
    const SteeredWorld world(sampleWorld());
    const auto answer =
        world.handler()({.method = "GET", .host = "bsky.app", .target = "/profile/snell.zone/rss"});
    EXPECT_EQ(answer.status, 302);
    EXPECT_TRUE(SteeredWorld::headerOf(answer, "Location")
                    .starts_with("https://bsky.app/profile/did:plc:"));
}

}  // namespace
}  // namespace pressroom::testing
