#include <gtest/gtest.h>

#include <regex>

#include <boost/asio/bind_cancellation_slot.hpp>
#include <boost/asio/cancellation_signal.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>

#include "NewsroomKit/Trackers/TrackerAPI.h"
#include "Tarnwick_Brell/Trackers/TrackedBackend.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"
#include "Tarnwick_Brell/Trackers/TrackerFetcher.h"
#include "tests/support/TestServer.h"
#include "tests/support/app/TestTrackers.h"

#undef emit  // Asio has a function of that name.

namespace app {
namespace {

namespace asio = boost::asio;
using namespace test;
using kit::Instant;
using kit::QuoteRange;
using kit::StatusFeed;
using pressroom::Response;

constexpr const char* kServiceHost = "desk.example";
constexpr const char* kWire = "/wp-json/tb-wire/v1/";
constexpr const char* kDevice = "/v4/device/iPhone17,3?type=ipsw";

// Lists as words: "Mail Maps!" is two services, the second with an ongoing incident;
// "iOS=7 macOS=7/6 tvOS" is a platform with a beta, one with a beta and a public build, and one
// without any.

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

std::string word(const kit::AppleServiceStatus::Service& service) {
    return service.name + (service.events.empty() ? "" : "!");
}
std::string word(const kit::PlatformRelease& platform) {
    return platform.platform + (platform.beta ? "=" + platform.beta->build : "") +
           (platform.current ? "/" + platform.current->build : "");
}
std::string word(const kit::AppleCalendarEvent& event) { return event.id; }
std::string word(const kit::BoardQuote& quote) { return quote.symbol; }
std::string word(const kit::SignedBuild& build) {
    return build.version + (build.isSigned ? "+" : "");
}
std::string word(const kit::UpdateOffer& offer) { return offer.version; }
std::string word(const kit::ChartEntry& entry) { return entry.id; }

template <class T>
std::string wordsOf(const std::vector<T>& items) {
    std::string text;
    for (const auto& item : items) text += (text.empty() ? "" : " ") + word(item);
    return text;
}
std::string wordsOf(const kit::SigningStatus& status) { return wordsOf(status.builds); }

template <class T>
std::string listOf(const kit::CachedValue<T>& cached) {
    return cached.value ? wordsOf(*cached.value) : "nothing";
}

struct Step {
    const char* answer;
    const char* shown;
    const char* log = "";  ///< what the histories of signing and updates get
    bool isRefused = false;
};

constexpr bool kRefused = true;

class TrackerFetcherTest : public ::testing::Test {
protected:
    template <class T>
    kit::CachedValue<T> fetch(const TrackedFile<T>& file) {
        asio::io_context io;
        kit::CachedValue<T> result;
        asio::co_spawn(io, fetcher_.fetch(file),
                       asio::bind_cancellation_slot(
                           cancellation_.slot(),
                           [&](const std::exception_ptr& failure, kit::CachedValue<T> value) {
                               if (failure) std::rethrow_exception(failure);
                               result = std::move(value);
                           }));
        if (isCancelled_) {
            asio::post(io, [&] { cancellation_.emit(asio::cancellation_type::terminal); });
        }
        io.run();
        return result;
    }

    void serve(const std::string& host, const std::string& target, Response answer) {
        harness_.script.on(host, target, {std::move(answer)});
    }

    kit::CachedValue<std::vector<kit::PlatformRelease>> releases(Response answer) {
        serve(kServiceHost, kWire + std::string("releases"), std::move(answer));
        return fetch(files_.releases());
    }

    std::int64_t failures() { return store_.trackerCopies().health("releases").failures; }

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

    template <class T, class Body>
    void play(const TrackedFile<T>& file, const std::string& host, const std::string& target,
              Body body, const std::vector<Step>& steps) {
        for (const auto& step : steps) {
            serve(host, target, {.body = body(step.answer)});
            const auto cached = fetch(file);
            const auto trace = file.title + " answered \"" + step.answer + "\"";
            EXPECT_EQ(listOf(cached), step.shown) << trace;
            EXPECT_EQ(TrackerCache(store_).read(file), cached) << trace;
            EXPECT_EQ(cached.error.value_or(""),
                      step.isRefused ? file.title + ": The answer was an empty list." : "")
                << trace;
            EXPECT_EQ(logged(), step.log) << trace;
            now_ += std::chrono::minutes(30);
        }
    }

    kit::test::TestServer harness_;
    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
    Instant now_{std::chrono::hours(1)};
    TrackerFetcher fetcher_{store_, harness_.client, [this] { return now_; }};
    TrackedFiles files_{std::string("https://") + kServiceHost};
    asio::cancellation_signal cancellation_;
    bool isCancelled_ = false;
    std::int64_t lastSigning_ = 0, lastOffer_ = 0;
};

TEST_F(TrackerFetcherTest, AListIsNotBelievedToBeShorterBeforeASecondAnswerSaysSo) {
    play(files_.status(StatusFeed::developer), "www.apple.com",
         "/support/systemstatus/data/developer/system_status_en_US.js", statusBody,
         {{"", "nothing", "", kRefused},
          {"A B! C", "A B! C"},
          {"C A!", "C A! B!"},
          {"", "C A! B!", "", kRefused},
          {"C A", "C A"}});
    play(files_.releases(), kServiceHost, kWire + std::string("releases"), releasesBody,
         {{"tvOS", "nothing", "", kRefused},
          {"tvOS=1 iOS=1 homeOS", "iOS=1 tvOS=1 homeOS"},
          {"iOS=2 tvOS", "iOS=2 tvOS=1"},
          {"iOS=3", "iOS=3"},
          {"iOS", "iOS=3", "", kRefused},
          {"iOS=4 macOS=1", "iOS=4 macOS=1"},
          {"iOS=5", "iOS=5 macOS=1"},
          {"macOS=2", "iOS=5 macOS=2"},
          {"macOS=2", "macOS=2"},
          {"macOS=2/1", "macOS=2/1"},
          {"macOS/2", "macOS=2/2"},
          {"macOS/2", "macOS/2"},
          {"macOS=3", "macOS=3/2"}});
    play(files_.events(), kServiceHost, kWire + std::string("events"), eventsBody,
         {{"", ""}, {"x y", "x y"}, {"y", "y"}, {"", "y"}, {"z", "z"}, {"", "z"}, {"", ""}});
    play(files_.board(), kServiceHost, kWire + std::string("quotes"), boardBody,
         {{"", ""},
          {"x y", "x y"},
          {"y", "y"},
          {"", "y", "", kRefused},
          {"", "y", "", kRefused},
          {"x", "x"}});
    play(files_.updates(), "gdmf.apple.com", "/v2/pmv", updatesBody,
         {{"2 1", "2 1"},
          {"3 1", "3 2 1", "+3"},
          {"2 1", "3 2 1"},  // each answer lacks something else
          {"2 1", "2 1", "-3"},
          {"", "2 1", "", kRefused},
          {"2", "2 1"},
          {"", "2 1", "", kRefused},
          {"2", "2", "-1"}});
    play(files_.chart(kit::AppStoreCharts::Kind::topFree), "rss.marketingtools.apple.com",
         "/api/v2/us/apps/top-free/25/apps.json", chartBody,
         {{"a b c", "a b c"},
          {"b a", "a b c"},
          {"c a b", "c a b"},
          {"b", "c a b"},
          {"b", "b"},
          {"", "b", "", kRefused}});
}

TEST_F(TrackerFetcherTest,
       ABuildIsSignedNoLongerOnceASecondAnswerSaysSoAndTheFirstLookOnlyRemembers) {
    const auto body = [](const std::string& list) { return signingBody(list); };
    play(files_.signing("iPhone17,3"), "api.ipsw.me", kDevice, body,
         {{"3+ 2+ 1", "3+ 2+ 1"},
          {"3+ 2 1", "3+ 2+ 1"},
          {"3+ 2+ 1", "3+ 2+ 1"},  // it was a slip
          {"3+ 1", "3+ 2+ 1"},
          {"4+ 3+ 1", "4+ 3+ 1", "-2 +4"},
          {"4+ 3+ 2+ 1+", "4+ 3+ 2+ 1+", "+2 +1"},
          {"4+ 3 2 1", "4+ 3+ 2+ 1+"},
          {"4+ 3 2 1", "4+ 3 2 1", "-3 -2 -1"},
          {"5 4+ 3", "5 4+ 3 2 1"},
          {"", "5 4+ 3 2 1", "", kRefused},
          {"5 4+ 3", "5 4+ 3"}});
    EXPECT_EQ(store_.signing().newest(1, "iPhone17,3").at(0).deviceName, "Phone");
    EXPECT_TRUE(store_.signing().newest(1, "iPhone17,1").empty());
    // Builds that are listed twice are signed where one listing says so.
    play(files_.signing("iPad16,1"), "api.ipsw.me", "/v4/device/iPad16,1?type=ipsw", body,
         {{"3 3+ 2+ 2+", "3 3+ 2+ 2+"},
          {"3 3+ 2+ 2+", "3 3+ 2+ 2+"},
          {"3 3+ 2 2", "3 3+ 2+ 2"},
          {"3 3+ 2 2", "3 3+ 2 2", "-2"}});
}

TEST_F(TrackerFetcherTest, AFailureLeavesTheLastGoodAndIsCountedUntilASuccess) {
    const auto good = releases({.body = releasesBody("iOS=1")});
    EXPECT_EQ(listOf(good), "iOS=1");
    EXPECT_EQ(good.fetchedAt, now_);
    const std::pair<Response, std::string> failing[] = {
        {{.status = 404}, "The server answered 404"},
        {{.status = 503}, "The server answered 503"},
        {{.body = "<html>Sign in</html>"}, "The server's answer can't be read (this is not JSON"},
        {{.body = R"({"systems":{"iOS":{"beta":{}}}})"},
         "The server's answer can't be read (systems.iOS.beta.version: the key is missing)."},
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
        EXPECT_EQ(TrackerCache(store_).read(files_.releases()), reading) << "also after a restart";
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

TEST_F(TrackerFetcherTest, AServerThatWantsToBeLeftAloneIs) {
    const auto asked = [&] {
        return harness_.script.requests(kServiceHost, kWire + std::string("releases")).size();
    };
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

TEST_F(TrackerFetcherTest, ACopyThatDoesNotReadIsNone) {
    store_.trackerCopies().store("releases", {"<html>", now_});
    store_.trackerCopies().store("releases/before", {releasesBody("iOS=1"), now_});
    EXPECT_EQ(TrackerCache(store_).read(files_.releases()),
              (kit::CachedValue<std::vector<kit::PlatformRelease>>()));
    EXPECT_EQ(listOf(releases({.body = releasesBody("iOS=2")})), "iOS=2");
}

TEST_F(TrackerFetcherTest, EachSymbolAndRangeHasItsQuote) {
    const auto serve = [&](const char* query, const char* range, const char* symbol = "^gspc") {
        harness_.script.on(
            kServiceHost, std::string("/wp-json/tb-wire/v1/quote?") + query,
            {{.body = std::string(R"({"name":"n","currency":"USD","price":1,)"
                                  R"("market_state":"OPEN","points":[],"symbol":")") +
                      symbol + R"(","range":")" + range + "\"}"}});
    };
    serve("range=1d&symbol=%5EGSPC", "1d");
    serve("range=1y&symbol=%5EGSPC", "1y");
    const auto day = fetch(files_.quote("^GSPC", QuoteRange::day));
    const auto year = fetch(files_.quote("^GSPC", QuoteRange::year));
    EXPECT_EQ(day.value.value().range, "1d");
    EXPECT_EQ(TrackerCache(store_).read(files_.quote("^GSPC", QuoteRange::day)), day);
    EXPECT_EQ(TrackerCache(store_).read(files_.quote("^GSPC", QuoteRange::year)), year);
    EXPECT_FALSE(TrackerCache(store_).read(files_.quote("^GSPC", QuoteRange::week)).value);
    const auto missing = fetch(files_.quote("NOPE", QuoteRange::day));
    EXPECT_FALSE(missing.value);
    EXPECT_EQ(missing.error, "The quote of NOPE: The service knows no such symbol.");
    for (const auto& [range, symbol] : {std::pair{"1y", "^GSPC"}, {"1d", "^DJI"}}) {
        serve("range=1d&symbol=%5EGSPC", range, symbol);
        const auto other = fetch(files_.quote("^GSPC", QuoteRange::day));
        EXPECT_EQ(other.error, "The quote of ^GSPC: The server answered with another quote.");
        EXPECT_EQ(other.value, day.value);
    }
    for (const auto* spelling : {"BRK-B", "brk/b", "BRK.B"}) {
        serve("range=1d&symbol=BRK.B", "1d", spelling);
        EXPECT_EQ(fetch(files_.quote("BRK.B", QuoteRange::day)).error, std::nullopt) << spelling;
    }
    for (const auto* stranger : {"BRKB", "BRK.A", "BRK-B.X"}) {
        serve("range=1d&symbol=BRK.B", "1d", stranger);
        EXPECT_TRUE(fetch(files_.quote("BRK.B", QuoteRange::day)).error) << stranger;
    }
}

TEST_F(TrackerFetcherTest, OnlyAWholeAnswerEndsAnIncident) {
    const auto answer = [&](Response response) {
        harness_.script.on("www.apple.com", "/support/systemstatus/data/system_status_en_US.js",
                           {std::move(response)});
        now_ += std::chrono::minutes(2);
        fetch(files_.status(StatusFeed::consumer));
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

TEST_F(TrackerFetcherTest, AWatchedFileIsAskedForAgainOnlyIfItHasChangedUnlessAChangeWaits) {
    const auto file = backendFile(*kit::watchedFile("robots"));
    const std::string host = "www.apple.com", target = "/robots.txt";
    const auto poll = [&](Response answer) {
        now_ += std::chrono::minutes(31);
        serve(host, target, std::move(answer));
        const auto cached = fetch(file);
        const auto asked = harness_.script.requests(host, target).back().header("if-none-match");
        return std::string(asked.value_or("-")) + " " + cached.error.value_or("good") + " " +
               std::to_string(cached.value ? cached.value->entries : 0) +
               (cached.fetchedAt == now_ ? "" : " (old)");
    };
    const auto robots = [](const std::string& paths, const std::string& tag) {
        return Response{.headers = {{"ETag", tag}}, .body = "User-agent: *\nDisallow: /" + paths};
    };
    EXPECT_EQ(poll(robots("a", "\"1\"")), "- good 1");
    EXPECT_EQ(poll({.status = 304}), "\"1\" good 1");
    EXPECT_EQ(poll({.status = 304}), "\"1\" good 1");
    const auto lastSeenWithout = now_;
    EXPECT_EQ(poll(robots("a\nDisallow: /b", "\"2\"")), "\"1\" good 2");
    EXPECT_EQ(poll({.status = 304}), "- robots.txt of apple.com: The server sent nothing. 2 (old)")
        << "nobody asked for less than the file";
    EXPECT_EQ(poll(robots("a\nDisallow: /b", "\"2\"")), "- good 2");
    const auto found = store_.findings().newest(9);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].finding.notSeenAt, lastSeenWithout);
    EXPECT_TRUE(found[0].before && found[0].after) << "both states";
    EXPECT_EQ(poll({.status = 304}), "\"2\" good 2");
    EXPECT_EQ(store_.findings().newest(9).size(), 1U);
}

}  // namespace
}  // namespace app
