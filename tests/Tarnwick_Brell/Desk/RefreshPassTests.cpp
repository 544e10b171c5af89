#include <gtest/gtest.h>

#include <map>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/use_future.hpp>

#include "Tarnwick_Brell/Desk/RefreshPass.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/app/TestDesk.h"
#include "tests/Tarnwick_Brell/Storage/LibraryFile.h"

namespace app {
namespace {

namespace asio = boost::asio;
using namespace std::chrono_literals;
using Kind = SourceOutcome::Kind;
using pressroom::Response;
using test::TestDesk;

class RefreshPassTest : public ::testing::Test {
protected:
    PassReport refresh(const std::vector<std::string>& hosts, PassScope scope = PassScope::all) {
        std::vector<kit::NewsSource> sources;
        for (const auto& host : hosts) {
            sources.push_back(TestDesk::source(host));
            sources.back().minimumInterval = minimumInterval_;
        }
        const PassSettings settings{.scope = scope, .retention = retention_};
        RefreshPass pass(store_, engine_, harness_.clock(), settings, {});
        auto report = asio::co_spawn(io_, pass.run(sources), asio::use_future);
        io_.restart();
        io_.run();
        return report.get();
    }

    static const SourceOutcome& of(const PassReport& report, const std::string& host) {
        return *std::find_if(report.outcomes.begin(), report.outcomes.end(),
                             [&](const auto& outcome) { return outcome.source.id == host; });
    }

    using Arrivals = std::map<Arrival, int>;

    /// How the stories of the library have come.
    Arrivals arrivals() {
        Arrivals counts;
        store_.stories().eachInWireOrder(std::nullopt, [&](const StoredStory& stored) {
            ++counts[stored.arrival];
            return true;
        });
        return counts;
    }

    StoredStory newestOfHost(const std::string& host) {
        std::optional<StoredStory> newest;
        store_.stories().eachInWireOrder(std::nullopt, [&](const StoredStory& stored) {
            if (stored.story.sourceID == host) newest = stored;
            return !newest;
        });
        return newest.value();
    }

    TestDesk harness_{{}};
    LocalStore store_{harness_.library(), Database::Access::readWrite};
    asio::io_context io_;
    FetchStack engine_{harness_.network(), kit::Conditional::yes, harness_.clock()};
    double minimumInterval_ = 0;
    std::chrono::duration<double> retention_ = 365 * 24h;
};

const Response kUnreachable{.delivery = {.hangsUp = true}};

TEST_F(RefreshPassTest, NoSourceIsBlamedWhenNoneAnswers) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 2), kUnreachable});
    harness_.serve("b.example", {TestDesk::feed("b.example", 1, 2), kUnreachable});
    refresh({"a.example", "b.example"});
    const auto before = store_.sources().statuses();
    harness_.pass(10min);
    const auto report = refresh({"a.example", "b.example"});
    EXPECT_TRUE(report.offline);
    EXPECT_EQ(of(report, "a.example").kind, Kind::failed);
    EXPECT_TRUE(of(report, "a.example").error.has_value());
    EXPECT_EQ(store_.sources().statuses(), before);

    harness_.serve("c.example", {TestDesk::feed("c.example", 1, 2)});
    const auto other = refresh({"a.example", "b.example", "c.example"});
    EXPECT_FALSE(other.offline);
    const auto health = store_.sources().healths();
    EXPECT_EQ(health.at("a.example").failingSince, harness_.now()) << "others were reached";
    EXPECT_FALSE(health.at("c.example").failingSince.has_value());
    EXPECT_FALSE(refresh({"a.example"}).offline) << "one silent server is no network";
}

TEST_F(RefreshPassTest, AHostThatAsksForPeaceIsLeftAloneForAsLongAsItSaysButAnHourAtMost) {
    struct Case {
        const char* retryAfter;
        std::chrono::minutes asksAgainAfter;
        bool isPaused;
    };
    int number = 0;
    for (const auto& [retryAfter, after, isPaused] :
         {Case{"600", 12min, true}, Case{"864000", 61min, true}, Case{"0", 1min, false}}) {
        const auto host = "h" + std::to_string(++number) + ".example";
        const Response busy{.status = 429, .headers = {{"Retry-After", retryAfter}}};
        harness_.serve(host, {busy, busy, TestDesk::feed(host, 1, 1)});
        EXPECT_EQ(of(refresh({host}), host).kind, Kind::failed) << retryAfter;
        const auto asked = harness_.requestsOf(host);
        harness_.pass(1min);
        const auto again = refresh({host});
        EXPECT_EQ(of(again, host).kind, isPaused ? Kind::paused : Kind::stories) << retryAfter;
        EXPECT_EQ(harness_.requestsOf(host), isPaused ? asked : asked + 1) << retryAfter;
        if (isPaused) {
            EXPECT_LE(*of(again, host).pausedUntil, harness_.now() + 1h) << retryAfter;
        }
        harness_.pass(after);
        EXPECT_EQ(of(refresh({host}), host).kind, Kind::stories) << retryAfter;
    }
}

TEST_F(RefreshPassTest, AFeedThatOnlyEverIsUnchangedComesInFullOnceADay) {
    const auto feed = TestDesk::feed("a.example", 1, 2);
    harness_.serve("a.example", {feed, {.status = 304}});
    refresh({"a.example"});
    for (int hour = 1; hour < 24; hour += 8) {
        harness_.pass(8h - 1min);
        EXPECT_EQ(of(refresh({"a.example"}), "a.example").kind, Kind::unchanged);
        EXPECT_TRUE(harness_.lastRequestWasConditional("a.example")) << hour;
    }
    harness_.pass(10min);
    refresh({"a.example"});
    EXPECT_FALSE(harness_.lastRequestWasConditional("a.example"));
}

TEST_F(RefreshPassTest, IntervalsHoldThroughClockChangesAndCanBeOverridden) {
    minimumInterval_ = 1800;
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 2)});
    refresh({"a.example"});
    harness_.pass(10min);
    EXPECT_EQ(of(refresh({"a.example"}), "a.example").kind, Kind::notDue);
    EXPECT_EQ(of(refresh({"a.example"}, PassScope::named), "a.example").kind, Kind::stories);
    harness_.pass(-24h);
    EXPECT_EQ(of(refresh({"a.example"}), "a.example").kind, Kind::stories)
        << "a clock that was set back silences nobody";
}

TEST_F(RefreshPassTest, OldItemsPublishedAnewAreMarkedUnlessTheDeskWasAwayForLong) {
    harness_.serve("a.example",
                   {TestDesk::feed("a.example", 1, 2), TestDesk::feed("a.example", 1, 60),
                    TestDesk::feed("a.example", 61, 99), TestDesk::feed("a.example", -99, 0)});
    EXPECT_FALSE(of(refresh({"a.example"}), "a.example").merged.bulk);
    const auto second = refresh({"a.example"});
    EXPECT_TRUE(of(second, "a.example").merged.bulk);
    EXPECT_EQ(of(second, "a.example").merged.added, 58u);
    EXPECT_FALSE(of(refresh({"a.example"}), "a.example").merged.bulk) << "39 are no crowd";
    harness_.pass(50h);
    const auto later = refresh({"a.example"});
    EXPECT_EQ(of(later, "a.example").merged.added, 100u);
    EXPECT_FALSE(of(later, "a.example").merged.bulk);
}

TEST_F(RefreshPassTest, APassWithoutNewsWritesLittleMoreThanTheTimesOfItsSources) {
    std::vector<std::string> hosts;
    for (int number = 0; number < 60; ++number) {
        hosts.push_back("h" + std::to_string(number) + ".example");
        harness_.serve(hosts.back(), {TestDesk::feed(hosts.back(), 1, 5), {.status = 304}});
    }
    refresh(hosts);
    const auto validators = store_.validators().load();
    ::test::PagesWritten pages(harness_.library());
    const auto report = refresh(hosts);
    for (const auto& outcome : report.outcomes) EXPECT_EQ(outcome.kind, Kind::unchanged);
    EXPECT_EQ(store_.validators().load(), validators);
    // 60 rows of about 100 bytes lie on two pages. Each second of the pass writes them at most
    // once, beside the page of the desk's own times.
    EXPECT_LT(pages.count(), 20);
}

TEST_F(RefreshPassTest, AFeedWithoutStoriesIsNoFailureAndNoFirstFetch) {
    const auto empty = [](const char* tag) {
        return Response{.headers = {{"ETag", tag}}, .body = "<rss><channel></channel></rss>"};
    };
    const auto three = TestDesk::feed("a.example", 60, 62);
    harness_.serve("a.example", {empty("\"1\""),
                                 three,
                                 empty("\"2\""),
                                 {.status = 304},
                                 TestDesk::feed("a.example", 62, 63)});
    const auto quiet = refresh({"a.example"});
    EXPECT_EQ(of(quiet, "a.example").kind, Kind::stories);
    EXPECT_TRUE(of(quiet, "a.example").isEmpty);
    EXPECT_FALSE(of(quiet, "a.example").status.lastError.has_value());
    EXPECT_EQ(of(quiet, "a.example").status.lastSuccess, harness_.now());

    refresh({"a.example"});
    EXPECT_TRUE(harness_.lastRequestWasConditional("a.example")) << "its validators are kept";
    EXPECT_EQ(arrivals(), (Arrivals{{Arrival::seeded, 3}}));
    refresh({"a.example"});
    EXPECT_EQ(of(refresh({"a.example"}), "a.example").kind, Kind::unchanged);
    refresh({"a.example"});
    EXPECT_EQ(arrivals(), (Arrivals{{Arrival::seeded, 3}, {Arrival::fresh, 1}}))
        << "a quiet week does not make the source new";
}

TEST_F(RefreshPassTest, UnchangedAsTheVeryFirstAnswerIsNoFirstFetch) {
    harness_.serve("a.example", {{.status = 304},
                                 TestDesk::feed("a.example", 60, 62),
                                 TestDesk::feed("a.example", 60, 63)});
    EXPECT_EQ(of(refresh({"a.example"}), "a.example").kind, Kind::unchanged);
    refresh({"a.example"});
    EXPECT_EQ(arrivals(), (Arrivals{{Arrival::seeded, 3}}));
    refresh({"a.example"});
    EXPECT_EQ(arrivals(), (Arrivals{{Arrival::seeded, 3}, {Arrival::fresh, 1}}));
}

TEST_F(RefreshPassTest, WhatComesDaysAfterItsPublicationIsNoNews) {
    harness_.serve("a.example",
                   {TestDesk::feed("a.example", 98, 99), TestDesk::feed("a.example", 24, 35)});
    retention_ = 48h;
    refresh({"a.example"});
    retention_ = 80h;
    refresh({"a.example"});
    EXPECT_EQ(arrivals(),
              (Arrivals{{Arrival::seeded, 2}, {Arrival::late, 4}, {Arrival::fresh, 8}}));
}

TEST_F(RefreshPassTest, APauseOfAWrongClockEndsWithinTheHourAndNamingTheSourceOverridesIt) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 1, 1)});
    const auto begin = harness_.now();
    store_.hostPauses().set("a.example", begin + 24h * 365);
    EXPECT_EQ(of(refresh({"a.example"}), "a.example").pausedUntil, begin + 1h);
    EXPECT_EQ(of(refresh({"a.example"}, PassScope::named), "a.example").kind, Kind::stories);
    harness_.pass(30min);
    EXPECT_EQ(of(refresh({"a.example"}), "a.example").pausedUntil, begin + 1h)
        << "not an hour from now";
    harness_.pass(31min);
    EXPECT_EQ(of(refresh({"a.example"}), "a.example").kind, Kind::stories);
}

TEST_F(RefreshPassTest, NoClockThatLeapsLosesOrRepeatsNews) {
    for (const auto leap : {24h * 800, -24h * 800}) {
        SCOPED_TRACE(leap.count());
        const std::string host = leap > 0h ? "ahead.example" : "behind.example";
        const auto truth = harness_.now();
        const auto answer = [&](int first, int last) {
            return TestDesk::dated(TestDesk::feed(host, first, last), truth);
        };
        harness_.serve(host, {answer(60, 62), answer(60, 63), answer(60, 63)});
        retention_ = 60h;
        EXPECT_EQ(refresh({host}).droppedBefore, truth - 60h);
        const auto before = store_.stories().count();

        harness_.pass(leap);
        const auto report = refresh({host});
        EXPECT_TRUE(report.clockSeemsWrong);
        EXPECT_FALSE(report.droppedBefore.has_value());
        EXPECT_EQ(store_.stories().count(), before + 1);
        const auto newest = newestOfHost(host);
        EXPECT_EQ(newest.story.publishedAt, truth - 37h);
        EXPECT_EQ(newest.arrival, Arrival::fresh);

        harness_.pass(-leap);
        const auto back = refresh({host});
        EXPECT_FALSE(back.clockSeemsWrong);
        EXPECT_EQ(back.droppedBefore, truth - 60h);
        EXPECT_EQ(of(back, host).merged.added, 0u);
        EXPECT_EQ(store_.stories().count(), before + 1);
    }
}

TEST_F(RefreshPassTest, APassWithoutAnyAnswerDropsNothing) {
    harness_.serve("a.example", {TestDesk::feed("a.example", 60, 62), kUnreachable});
    harness_.serve("b.example", {kUnreachable});
    refresh({"a.example"});
    harness_.pass(24h * 800);
    EXPECT_FALSE(refresh({"a.example", "b.example"}).droppedBefore.has_value());
    EXPECT_EQ(store_.stories().count(), 3u);
    harness_.serve("a.example", {{.status = 404}});
    EXPECT_TRUE(refresh({"a.example"}).droppedBefore.has_value())
        << "a server without a clock answered";
    EXPECT_EQ(store_.stories().count(), 0u);
}

TEST_F(RefreshPassTest, StoriesThatShareALinkCountAsOne) {
    std::string feed = "<rss><channel>";
    for (int i = 0; i < 99; ++i) {
        feed += "<item><title>Episode " + std::to_string(i) +
                "</title><link>https://a.example/show</link></item>";
    }
    harness_.serve("a.example", {{.body = feed + "</channel></rss>"}});
    const auto outcome = of(refresh({"a.example"}), "a.example");
    EXPECT_EQ(outcome.status.storyCount, 1);
    EXPECT_EQ(outcome.health.collapsed, 98);
}

TEST_F(RefreshPassTest, EveryFetchIsRememberedForAWeekWithWhatItGave) {
    harness_.serve("a.example",
                   {TestDesk::feed("a.example", 1, 2), TestDesk::feed("a.example", 1, 2),
                    Response{.status = 503}, Response{.status = 404}});
    const auto tries = [&] {
        std::string text;
        for (const auto& each : store_.sources().tries("a.example"))
            text += std::string(kit::rawValue(each.outcome)) + ' ' + std::to_string(each.added) +
                    each.reason + '\n';
        return text;
    };
    for (int pass = 0; pass < 3; ++pass) {
        refresh({"a.example"});
        harness_.pass(1h);
    }
    EXPECT_EQ(tries(), "news 2\nfull 0\nfailed 0The server answered 404.\n");
    harness_.pass(kTriesKept);
    refresh({"a.example"});
    EXPECT_EQ(tries(), "failed 0The server answered 404.\n");
}

}  // namespace
}  // namespace app
