#include <gtest/gtest.h>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>

#include "Tarnwick_Brell/Signals/SignalsRefresh.h"
#include "tests/Tarnwick_Brell/Signals/SignalBodies.h"
#include "tests/support/TestServer.h"

namespace app {
namespace {

namespace asio = boost::asio;
using namespace test;
using Kind = kit::AppStoreCharts::Kind;

template <class T>
asio::awaitable<void> keepResult(SignalsRefresh::Result<T> refresh,
                                 std::optional<TrackerReading<T>>& place) {
    place = co_await std::move(refresh);
}

std::string listOf(const kit::SigningStatus& status) {
    std::string text;
    for (const auto& build : status.builds) {
        text += (text.empty() ? "" : " ") + build.version + (build.isSigned ? "+" : "");
    }
    return text;
}

std::string listOf(const std::vector<kit::UpdateOffer>& offers) {
    std::string text;
    for (const auto& offer : offers) text += (text.empty() ? "" : " ") + offer.version;
    return text;
}

std::string listOf(const std::vector<kit::ChartEntry>& entries) {
    std::string text;
    for (const auto& entry : entries) text += (text.empty() ? "" : " ") + entry.id;
    return text;
}

struct Step {
    const char* answer;
    const char* shown;
    const char* log = "";  ///< what the histories got, the first first
};

class SignalsRefreshTest : public ::testing::Test {
protected:
    template <class T>
    TrackerReading<T> run(SignalsRefresh::Result<T> refresh) {
        asio::io_context io;
        std::optional<TrackerReading<T>> place;
        asio::co_spawn(io, keepResult(std::move(refresh), place),
                       [](const std::exception_ptr& failure) {
                           if (failure) std::rethrow_exception(failure);
                       });
        io.run();
        now_ += std::chrono::minutes(30);
        return std::move(place).value();
    }

    void serve(const std::string& host, const std::string& target, pressroom::Response answer) {
        bench_.script.on(host, target, {std::move(answer)});
    }

    /// "+26.6" and "-26.5" for each change since the last call.
    std::string logged() {
        std::string text;
        const auto add = [&](bool isOn, const std::string& version) {
            text += std::string(text.empty() ? "" : " ") + (isOn ? "+" : "-") + version;
        };
        for (const auto& change : store_.signing().after(lastSigning_)) {
            add(change.isSigned, change.version);
        }
        for (const auto& change : store_.offers().after(lastOffer_)) {
            add(change.isOffered, change.offer.version);
        }
        lastSigning_ = store_.signing().lastNumber();
        lastOffer_ = store_.offers().lastNumber();
        return text;
    }

    template <class Serve, class Refresh, class Stored>
    void play(const std::vector<Step>& steps, Serve answer, Refresh refresh, Stored stored) {
        for (const auto& step : steps) {
            answer(step.answer);
            const auto reading = run(refresh());
            EXPECT_EQ(listOf(reading.value.value()), step.shown) << step.answer;
            EXPECT_EQ(stored(), reading) << step.answer;
            EXPECT_EQ(logged(), step.log) << step.answer;
        }
    }

    kit::test::TestServer bench_;
    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
    kit::Instant now_{std::chrono::hours(1)};
    SignalsRefresh refresh_{store_, bench_.client, [this] { return now_; }};
    LastSignals last_{store_};
    std::int64_t lastSigning_ = 0, lastOffer_ = 0;
};

TEST_F(SignalsRefreshTest,
       ABuildIsSignedNoLongerOnceASecondAnswerSaysSoAndTheFirstLookOnlyRemembers) {
    play(
        {{"3+ 2+ 1", "3+ 2+ 1"},
         {"3+ 2 1", "3+ 2+ 1"},
         {"3+ 2+ 1", "3+ 2+ 1"},  // it was a slip
         {"3+ 1", "3+ 2+ 1"},
         {"4+ 3+ 1", "4+ 3+ 1", "-2 +4"},
         {"4+ 3+ 2+ 1+", "4+ 3+ 2+ 1+", "+2 +1"},
         {"4+ 3 2 1", "4+ 3+ 2+ 1+"},
         {"4+ 3 2 1", "4+ 3 2 1", "-3 -2 -1"},
         {"5 4+ 3", "5 4+ 3 2 1"},
         {"", "5 4+ 3 2 1"},
         {"5 4+ 3", "5 4+ 3"}},
        [&](const std::string& list) {
            serve("api.ipsw.me", "/v4/device/iPhone17,3?type=ipsw", {.body = signingBody(list)});
        },
        [&] { return refresh_.signing("iPhone17,3"); },
        [&] { return last_.signing("iPhone17,3"); });
    EXPECT_EQ(store_.signing().newest(1, "iPhone17,3").at(0).deviceName, "Phone");
    EXPECT_TRUE(store_.signing().newest(1, "iPhone17,1").empty());
}

TEST_F(SignalsRefreshTest, ABuildThatIsListedTwiceIsSignedWhereAListingSaysSoAndIsToldOnce) {
    play(
        {{"3 3+ 2+ 2+", "3 3+ 2+ 2+"},
         {"3 3+ 2+ 2+", "3 3+ 2+ 2+"},
         {"3 3+ 2 2", "3 3+ 2+ 2"},
         {"3 3+ 2 2", "3 3+ 2 2", "-2"}},
        [&](const std::string& list) {
            serve("api.ipsw.me", "/v4/device/iPhone17,3?type=ipsw", {.body = signingBody(list)});
        },
        [&] { return refresh_.signing("iPhone17,3"); },
        [&] { return last_.signing("iPhone17,3"); });
}

TEST_F(SignalsRefreshTest, AnOfferIsGoneOnceASecondAnswerLacksItAndAnEmptyCatalogueIsNone) {
    play(
        {{"2 1", "2 1"},
         {"3 1", "3 2 1", "+3"},
         {"2 1", "3 2 1"},  // each answer lacks something else
         {"2 1", "2 1", "-3"},
         {"", "2 1"},
         {"2", "2 1"},
         {"", "2 1"},
         {"2", "2", "-1"}},
        [&](const std::string& list) {
            serve("gdmf.apple.com", "/v2/pmv", {.body = updatesBody(list)});
        },
        [&] { return refresh_.updates(); }, [&] { return last_.updates(); });
}

TEST_F(SignalsRefreshTest, AChartStandsUntilAnotherIsAsLongOrASecondIsAsShort) {
    play(
        {{"a b c", "a b c"},
         {"b a", "a b c"},
         {"c a b", "c a b"},
         {"b", "c a b"},
         {"b", "b"},
         {"", "b"}},
        [&](const std::string& list) {
            serve("rss.marketingtools.apple.com", "/api/v2/us/apps/top-free/25/apps.json",
                  {.body = chartBody(list)});
        },
        [&] { return refresh_.chart(Kind::topFree); }, [&] { return last_.chart(Kind::topFree); });
}

TEST_F(SignalsRefreshTest, AFailureSaysWhatFailedAndLeavesTheLastGood) {
    const auto target = "/v4/device/iPhone17,3?type=ipsw";
    serve("api.ipsw.me", target, {.body = signingBody("1+")});
    run(refresh_.signing("iPhone17,3"));
    const std::pair<pressroom::Response, const char*> failures[] = {
        {{.status = 404}, "The service knows no such device."},
        {{.body = R"({"name":"x","firmwares":[{"version":"1"}]})"},
         "The answer does not read (firmwares[0].buildid: the key is missing)."},
        {{.body = "<html>"}, "The answer does not read (this is not JSON"},
    };
    for (const auto& [answer, sentence] : failures) {
        serve("api.ipsw.me", target, answer);
        const auto reading = run(refresh_.signing("iPhone17,3"));
        EXPECT_EQ(listOf(reading.value.value()), "1+");
        EXPECT_TRUE(
            reading.error->starts_with("What is signed for iPhone17,3: " + std::string(sentence)))
            << *reading.error;
    }
    EXPECT_EQ(run(refresh_.updates()).value, std::nullopt);
    EXPECT_EQ(logged(), "");
}

}  // namespace
}  // namespace app
