#include <gtest/gtest.h>

#include <functional>
#include <regex>
#include <sstream>

#include <boost/asio/bind_cancellation_slot.hpp>
#include <boost/asio/cancellation_signal.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>

#include "Tarnwick_Brell/Trackers/ListDoubts.h"
#include "Tarnwick_Brell/Trackers/TrackerRefresh.h"
#include "tests/support/TestServer.h"

namespace app {
namespace {

namespace asio = boost::asio;
using kit::Instant;
using kit::QuoteRange;
using kit::StatusFeed;
using pressroom::Response;

constexpr const char* kService = "desk.example";
constexpr const char* kReleases = "/wp-json/tb-wire/v1/releases";
constexpr std::pair<const char*, const char*> kFiles[] = {
    {"www.apple.com", "/support/systemstatus/data/developer/system_status_en_US.js"},
    {kService, kReleases},
    {kService, "/wp-json/tb-wire/v1/events"},
    {kService, "/wp-json/tb-wire/v1/quotes"}};

/// Lists as words: "Mail Maps!" is two services, the second with an ongoing incident;
/// "iOS=7 macOS=7/6 tvOS" is a platform with a beta, one with a beta and a public build, and one
/// without any.
std::vector<std::string> words(const std::string& list) {
    std::istringstream stream(list);
    return {std::istream_iterator<std::string>(stream), {}};
}

std::string joined(const std::string& list, const std::function<std::string(std::string)>& json) {
    std::string text;
    for (const auto& word : words(list)) text += (text.empty() ? "" : ",") + json(word);
    return text;
}

std::string statusBody(const std::string& list) {
    return "call({\"services\":[" +
           joined(list,
                  [](std::string word) {
                      const bool troubled = word.ends_with('!');
                      if (troubled) word.pop_back();
                      return R"({"serviceName":")" + word + R"(","events":[)" +
                             (troubled ? R"({"epochStartDate":1000})" : "") + "]}";
                  }) +
           "]});";
}

std::string releasesBody(const std::string& list) {
    return "{\"systems\":{" +
           joined(list,
                  [](const std::string& word) {
                      static const std::regex form("(\\w+)(?:=(\\w+))?(?:/(\\w+))?");
                      std::smatch parts;
                      std::regex_match(word, parts, form);
                      std::string channels;
                      for (const auto& [name, build] :
                           {std::pair{"beta", parts.str(2)}, {"public", parts.str(3)}}) {
                          if (build.empty()) continue;
                          channels += (channels.empty() ? "\"" : ",\"") + std::string(name) +
                                      R"(":{"version":"1","stage":"s","title":"t","url":"u",)"
                                      R"("published":"2026-11-02T18:00:00Z","build":")" +
                                      build + "\"}";
                      }
                      return "\"" + parts.str(1) + "\":{" + channels + "}";
                  }) +
           "}}";
}

std::string eventsBody(const std::string& list) {
    return "{\"events\":[" +
           joined(list,
                  [](const std::string& word) {
                      return R"({"id":")" + word +
                             R"(","title":"t","starts":"2026-11-02T18:00:00Z","window":"w",)"
                             R"("status":"s","source":"s","publisher":"p"})";
                  }) +
           "]}";
}

std::string boardBody(const std::string& list) {
    return "{\"quotes\":[" +
           joined(
               list,
               [](const std::string& word) {
                   return R"({"symbol":")" + word +
                          R"(","name":"n","group":"g","relation":"r","currency":"USD","price":1,)"
                          R"("market_state":"OPEN","points":[]})";
               }) +
           "]}";
}

std::string word(const AppleServiceStatus::Service& service) {
    return service.name + (service.events.empty() ? "" : "!");
}
std::string word(const PlatformRelease& platform) {
    return platform.platform + (platform.beta ? "=" + platform.beta->build : "") +
           (platform.current ? "/" + platform.current->build : "");
}
std::string word(const kit::AppleCalendarEvent& event) { return event.id; }
std::string word(const kit::BoardQuote& quote) { return quote.symbol; }

template <class T>
std::string listOf(const TrackerReading<std::vector<T>>& reading) {
    if (!reading.value) return "nothing";
    std::string text;
    for (const auto& item : *reading.value) text += (text.empty() ? "" : " ") + word(item);
    return text;
}

template <class T>
asio::awaitable<void> keepResult(TrackerRefresh::Result<T> refresh,
                                 std::optional<TrackerReading<T>>& place) {
    place = co_await std::move(refresh);
}

class TrackerRefreshTest : public ::testing::Test {
protected:
    template <class T>
    TrackerReading<T> run(TrackerRefresh::Result<T> refresh) {
        asio::io_context io;
        std::optional<TrackerReading<T>> place;
        asio::co_spawn(io, keepResult(std::move(refresh), place),
                       asio::bind_cancellation_slot(cancellation_.slot(),
                                                    [](const std::exception_ptr& failure) {
                                                        if (failure)
                                                            std::rethrow_exception(failure);
                                                    }));
        if (isCancelled_) {
            asio::post(io, [&] { cancellation_.emit(asio::cancellation_type::terminal); });
        }
        io.run();
        return std::move(place).value();
    }

    TrackerReading<std::vector<PlatformRelease>> releases(Response answer) {
        // A failure that may pass is asked for twice.
        bench_.script.on(kService, kReleases, {answer});
        return run(refresh_.releases());
    }

    std::int64_t failures() { return store_.trackerCopies().health("releases").failures; }

    kit::test::TestServer bench_;
    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
    Instant now_{std::chrono::hours(1)};
    TrackerRefresh refresh_{store_, bench_.client, [this] { return now_; },
                            std::string("https://") + kService};
    LastGood lastGood_{store_};
    asio::cancellation_signal cancellation_;
    bool isCancelled_ = false;
};

TEST_F(TrackerRefreshTest, AListIsNotBelievedToBeShorterBeforeASecondAnswerSaysSo) {
    struct Step {
        const char* answer;
        const char* shown;
        bool isRefused = false;
    };
    const auto play = [&](const std::string& title, auto body, auto refresh, auto stored,
                          const std::vector<Step>& steps) {
        for (const auto& step : steps) {
            for (const auto& [host, target] : kFiles) {
                bench_.script.on(host, target, {{.body = body(step.answer)}});
            }
            const auto reading = run(refresh());
            const auto trace = title + " answered \"" + step.answer + "\"";
            EXPECT_EQ(listOf(reading), step.shown) << trace;
            EXPECT_EQ(stored(), reading) << trace;
            EXPECT_EQ(reading.error.value_or(""),
                      step.isRefused ? title + ": The answer was an empty list." : "")
                << trace;
        }
    };
    play(
        "Apple's developer status", statusBody,
        [&] { return refresh_.status(StatusFeed::developer); },
        [&] { return lastGood_.status(StatusFeed::developer); },
        {{"", "nothing", true},
         {"A B! C", "A B! C"},
         {"C A!", "C A! B!"},
         {"", "C A! B!", true},
         {"C A", "C A"}});
    play(
        "The list of releases", releasesBody, [&] { return refresh_.releases(); },
        [&] { return lastGood_.releases(); },
        {{"tvOS", "nothing", true},
         {"tvOS=1 iOS=1 homeOS", "iOS=1 tvOS=1 homeOS"},
         {"iOS=2 tvOS", "iOS=2 tvOS=1"},
         {"iOS=3", "iOS=3"},
         {"iOS", "iOS=3", true},
         {"iOS=4 macOS=1", "iOS=4 macOS=1"},
         {"iOS=5", "iOS=5 macOS=1"},
         {"macOS=2", "iOS=5 macOS=2"},
         {"macOS=2", "macOS=2"},
         {"macOS=2/1", "macOS=2/1"},
         {"macOS/2", "macOS=2/2"},
         {"macOS/2", "macOS/2"},
         {"macOS=3", "macOS=3/2"}});
    play(
        "Apple's calendar", eventsBody, [&] { return refresh_.events(); },
        [&] { return lastGood_.events(); },
        {{"", ""}, {"x y", "x y"}, {"y", "y"}, {"", "y"}, {"z", "z"}, {"", "z"}, {"", ""}});
    play(
        "The board of quotes", boardBody, [&] { return refresh_.board(); },
        [&] { return lastGood_.board(); },
        {{"", ""}, {"x y", "x y"}, {"y", "y"}, {"", "y", true}, {"", "y", true}, {"x", "x"}});
}

TEST_F(TrackerRefreshTest, AFailureLeavesTheLastGoodAndIsCountedUntilASuccess) {
    const auto good = releases({.body = releasesBody("iOS=1")});
    EXPECT_EQ(listOf(good), "iOS=1");
    EXPECT_EQ(good.fetchedAt, now_);
    const std::pair<Response, std::string> failing[] = {
        {{.status = 404}, "The server answered 404"},
        {{.status = 503}, "The server answered 503"},
        {{.body = "<html>Sign in</html>"}, "The answer does not read (this is not JSON"},
        {{.body = R"({"systems":{"iOS":{"beta":{}}}})"},
         "The answer does not read (systems.iOS.beta.version: the key is missing)."},
        {{.body = std::string(kit::TrackerAPI::kByteLimit + 1, ' ')}, ""},
    };
    std::int64_t count = 0;
    const auto then = now_;
    for (const auto& [answer, error] : failing) {
        now_ += std::chrono::minutes(5);
        const auto reading = releases(answer);
        EXPECT_EQ(listOf(reading), "iOS=1");
        EXPECT_EQ(reading.fetchedAt, then);
        EXPECT_TRUE(reading.error.value_or("").starts_with("The list of releases: " + error))
            << reading.error.value_or("no error");
        EXPECT_EQ(failures(), ++count);
        EXPECT_EQ(lastGood_.releases(), reading) << "also after a restart";
    }
    EXPECT_EQ(store_.builds().newest(9).size(), 1U);
    isCancelled_ = true;
    EXPECT_TRUE(releases({.body = releasesBody("iOS=2"),
                          .delivery = {.delay = std::chrono::milliseconds(300)}})
                    .error);
    EXPECT_EQ(failures(), count) << "who cancels has not failed";
    isCancelled_ = false;
    now_ += std::chrono::minutes(5);
    const auto same = releases({.body = releasesBody("iOS=1")});
    EXPECT_EQ(same.fetchedAt, now_);
    EXPECT_FALSE(same.error);
    EXPECT_EQ(failures(), 0);
}

TEST_F(TrackerRefreshTest, AServerThatWantsToBeLeftAloneIs) {
    const auto asked = [&] { return bench_.script.requests(kService, kReleases).size(); };
    releases({.status = 429, .headers = {{"Retry-After", "7200"}}});
    const auto before = asked();
    now_ += std::chrono::minutes(59);
    const auto paused = releases({.body = releasesBody("iOS=1")});
    EXPECT_EQ(paused.error,
              "The list of releases: The server wants to be left alone for now. Try "
              "again in 1 min.");
    EXPECT_EQ(asked(), before);
    EXPECT_EQ(failures(), 1);
    now_ += std::chrono::minutes(1);
    EXPECT_EQ(listOf(releases({.body = releasesBody("iOS=1")})), "iOS=1");
}

TEST_F(TrackerRefreshTest, ACopyThatDoesNotReadIsNone) {
    store_.trackerCopies().keep("releases", {"<html>", now_});
    store_.trackerCopies().keep("releases/before", {releasesBody("iOS=1"), now_});
    EXPECT_EQ(lastGood_.releases(), (TrackerReading<std::vector<PlatformRelease>>()));
    EXPECT_EQ(listOf(releases({.body = releasesBody("iOS=2")})), "iOS=2");
}

TEST_F(TrackerRefreshTest, EachSymbolAndRangeHasItsQuote) {
    const auto serve = [&](const char* query, const char* range, const char* symbol = "^gspc") {
        bench_.script.on(kService, std::string("/wp-json/tb-wire/v1/quote?") + query,
                         {{.body = std::string(R"({"name":"n","currency":"USD","price":1,)"
                                               R"("market_state":"OPEN","points":[],"symbol":")") +
                                   symbol + R"(","range":")" + range + "\"}"}});
    };
    serve("range=1d&symbol=%5EGSPC", "1d");
    serve("range=1y&symbol=%5EGSPC", "1y");
    const auto day = run(refresh_.quote("^GSPC", QuoteRange::day));
    const auto year = run(refresh_.quote("^GSPC", QuoteRange::year));
    EXPECT_EQ(day.value.value().range, "1d");
    EXPECT_EQ(lastGood_.quote("^GSPC", QuoteRange::day), day);
    EXPECT_EQ(lastGood_.quote("^GSPC", QuoteRange::year), year);
    EXPECT_FALSE(lastGood_.quote("^GSPC", QuoteRange::week).value);
    const auto missing = run(refresh_.quote("NOPE", QuoteRange::day));
    EXPECT_FALSE(missing.value);
    EXPECT_EQ(missing.error, "The quote of NOPE: The service knows no such symbol.");
    for (const auto& [range, symbol] : {std::pair{"1y", "^GSPC"}, {"1d", "^DJI"}}) {
        serve("range=1d&symbol=%5EGSPC", range, symbol);
        const auto other = run(refresh_.quote("^GSPC", QuoteRange::day));
        EXPECT_EQ(other.error, "The quote of ^GSPC: The server answered with another quote.");
        EXPECT_EQ(other.value, day.value);
    }
    for (const auto* spelling : {"BRK-B", "brk/b", "BRK.B"}) {
        serve("range=1d&symbol=BRK.B", "1d", spelling);
        EXPECT_EQ(run(refresh_.quote("BRK.B", QuoteRange::day)).error, std::nullopt) << spelling;
    }
    for (const auto* stranger : {"BRKB", "BRK.A", "BRK-B.X"}) {
        serve("range=1d&symbol=BRK.B", "1d", stranger);
        EXPECT_TRUE(run(refresh_.quote("BRK.B", QuoteRange::day)).error) << stranger;
    }
}

TEST_F(TrackerRefreshTest, OnlyAWholeAnswerEndsAnIncident) {
    const auto answer = [&](Response response) {
        bench_.script.on("www.apple.com", "/support/systemstatus/data/system_status_en_US.js",
                         {std::move(response)});
        now_ += std::chrono::minutes(2);
        run(refresh_.status(StatusFeed::consumer));
        return store_.incidents().find("", 9).at(0).endedSeen;
    };
    EXPECT_FALSE(answer({.body = statusBody("Mail! Maps")}));
    const auto body = statusBody("Mail Maps");
    const auto without = statusBody("Maps");
    EXPECT_FALSE(answer({.body = body.substr(0, body.size() / 2)}));
    EXPECT_FALSE(answer({.body = statusBody("")}));
    EXPECT_FALSE(answer({.body = without}));
    EXPECT_EQ(answer({.body = without}), now_) << "a service that is gone for good";
    EXPECT_FALSE(answer({.body = statusBody("Mail! Maps")}));
    EXPECT_EQ(answer({.body = body}), now_);
}

}  // namespace
}  // namespace app
