#include <gtest/gtest.h>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>

#include "NewsroomKit/Trackers/Status/AppleStatusAPI.h"
#include "NewsroomKit/Trackers/SignalsAPI.h"
#include "NewsroomKit/Trackers/TrackerAPI.h"
#include "tests/support/TestServer.h"

namespace kit {
namespace {

namespace asio = boost::asio;

template <class T>
FetchResult<T> outcome(asio::awaitable<FetchedFile<T>> fetch) {
    asio::io_context io;
    std::optional<FetchResult<T>> place;
    asio::co_spawn(
        io,
        [&]() -> asio::awaitable<void> {
            auto fetched = co_await std::move(fetch);
            EXPECT_EQ(fetched.value.has_value(), !fetched.body.empty());
            place = std::move(fetched.value);
        },
        [](const std::exception_ptr& failure) {
            if (failure) std::rethrow_exception(failure);
        });
    io.run();
    return std::move(place).value();
}

std::string release(std::string_view build, std::string_view published = "2026-11-02T18:00:00Z") {
    return R"({"version":"26.2","stage":"beta 3","build":")" + std::string(build) +
           R"(","title":"t","published":")" + std::string(published) +
           R"(","url":"https://a.example/","artwork":null})";
}

/// A quote with the given members besides those that every quote has.
std::string quote(std::string_view members) {
    return R"({"symbol":"AAPL","name":"Apple","currency":"USD","price":230.5,)"
           R"("market_state":"OPEN",)" +
           std::string(members) + "}";
}

TEST(TrackerAPI, PlatformsStandInTheirOrderAndUnknownOnesBehind) {
    const auto text =
        "\xEF\xBB\xBF{\"systems\":{\"tvOS\":{},\"bridgeOS\":{},\"iOS\":{\"public\":" +
        release("A") + ",\"beta\":null},\"audioOS\":{},\"IOS\":{},\"visionOS\":{\"beta\":" +
        release("B", "2026-11-02T10:00:00.25-08:00") + "},\"macOS\":{},\"iPadOS\":{}}}";
    const auto releases = TrackerAPI::parseReleases(text);
    std::string order;
    for (const auto& platform : releases) order += platform.platform + " ";
    EXPECT_EQ(order, "iOS iPadOS macOS tvOS visionOS IOS audioOS bridgeOS ");
    EXPECT_EQ(releases[0].current->build, "A");
    EXPECT_FALSE(releases[0].beta);
    EXPECT_FALSE(releases[4].current);
    EXPECT_EQ(releases[4].beta->published, parseISO8601("2026-11-02T18:00:00.25Z"));
}

TEST(TrackerAPI, AnAnswerWithAFaultAnywhereIsRefusedWhole) {
    struct Case {
        std::string fault;
        std::function<void()> parse;
    };
    const auto releases = [](std::string body) { return [=] { TrackerAPI::parseReleases(body); }; };
    const auto quotes = [](std::string body) { return [=] { TrackerAPI::parseQuote(body); }; };
    const Case cases[] = {
        {"systems.iOS.beta.published: Unreadable date soon",
         releases("{\"systems\":{\"iOS\":{\"beta\":" + release("A", "soon") + "}}}")},
        {"systems.iOS.public.published: Unreadable date 1767225600",
         releases(R"({"systems":{"iOS":{"public":{"published":1767225600}}}})")},
        {"events[0].starts: Unreadable date 1767225600",
         [] { TrackerAPI::parseEvents(R"({"events":[{"starts":1767225600}]})"); }},
        {"systems: an object is expected", releases(R"({"systems":[]})")},
        {"events[0].window: the key is missing",
         [] {
             TrackerAPI::parseEvents(
                 R"({"events":[{"id":"1","title":"t","starts":"2026-11-02T18:00:00Z"}]})");
         }},
        {"quotes: the key is missing", [] { TrackerAPI::parseBoard("{}"); }},
        {"points[1].c: a number is expected",
         quotes(quote(R"("range":"1d","points":[{"t":1,"c":2},{"t":2,"c":null}])"))},
        {"session_open: Unreadable date 09:30",
         quotes(quote(R"("range":"1d","points":[],"session_open":"09:30")"))},
    };
    for (const auto& c : cases) {
        try {
            c.parse();
            ADD_FAILURE() << "read in spite of: " << c.fault;
        } catch (const RecordError& error) {
            EXPECT_EQ(error.what(), c.fault);
        }
    }
}

TEST(StockQuote, ThePreviousCloseComesFromTheServiceOrFromThePoints) {
    // Two points before the session's open at 300, two after it, on both scales.
    const std::string four =
        R"("points":[{"t":100,"c":1},{"t":"1970-01-01T00:03:20Z","c":2},{"t":300,"c":3},{"t":400,"c":4}],)";
    const auto points = [&](const char* rest) { return four + rest; };
    const std::pair<std::string, std::optional<double>> cases[] = {
        {points(R"("range":"1d","session_open":300,"previous_close":9.5)"), 9.5},
        {points(R"("range":"1d","session_open":300,"previous_close":0)"), 2},
        {points(R"("range":"1w","session_open":"1970-01-01T00:05:00Z","previous_close":-1)"), 2},
        {points(R"("range":"1w","session_open":300.5)"), 3},
        {points(R"("range":"1d","session_open":100)"), std::nullopt},
        {points(R"("range":"1d","session_open":null)"), std::nullopt},
        {points(R"("range":"1m")"), 3},
        {points(R"("range":"1y","session_open":400)"), 3},
        {points(R"("range":"1y","session_open":401)"), 4},
        {R"("range":"1y","session_open":401,"points":[{"t":1,"c":5}])", std::nullopt},
        {R"("range":"1y","points":[])", std::nullopt},
    };
    for (const auto& [members, close] : cases) {
        EXPECT_EQ(TrackerAPI::parseQuote(quote(members)).previousClose(), close) << members;
    }
}

TEST(StockQuote, ItsTimesAreWrittenInTheStyleAskedForAndReadBack) {
    const auto read = TrackerAPI::parseQuote(quote(
        R"("range":"1d","as_of":"2026-11-20T15:00:00.5Z","points":[{"t":1763650800,"c":1}])"));
    for (auto style : {DateStyle::iso8601, DateStyle::secondsSince1970}) {
        const auto text = json::serialize(encode(read, style));
        EXPECT_EQ(decode<StockQuote>(parseJSON(text)), read) << text;
        EXPECT_EQ(text.find("2026-11-20T15:00:00.5Z") != text.npos, style == DateStyle::iso8601);
    }
}

TEST(TrackerAPI, SymbolsReachTheServiceUnharmed) {
    test::TestServer harness;
    const TrackerAPI api{.base = TrackerAPI::baseAt("https://desk.example/"),
                         .http = harness.client};
    const std::pair<const char*, const char*> symbols[] = {{"^GSPC", "%5EGSPC"},
                                                           {"BRK.B", "BRK.B"},
                                                           {"005930.KS", "005930.KS"},
                                                           {"EURUSD=X", "EURUSD%3DX"},
                                                           {"a b&c+d/é", "a%20b%26c%2Bd%2F%C3%A9"}};
    for (const auto& [symbol, encoded] : symbols) {
        harness.script.on("desk.example",
                          std::string("/wp-json/tb-wire/v1/quote?range=1y&symbol=") + encoded,
                          {{.body = quote(R"("range":"1y","points":[])")}});
        const auto result = outcome(api.quote(symbol, QuoteRange::year));
        EXPECT_TRUE(result.has_value()) << symbol << ": " << result.error().description();
    }
}

TEST(AppleStatusAPI, EachAudienceHasItsFileAndAFailureIsTheClients) {
    test::TestServer harness;
    const AppleStatusAPI api{.http = harness.client};
    const auto firstService = [&](StatusFeed audience) {
        const auto result = outcome(api.fetch(audience));
        return result ? result.value().at(0).name : result.error().description();
    };
    const std::string folder = "/support/systemstatus/data/";
    const auto file = [](const std::string& name) {
        return "call({\"services\":[{\"serviceName\":\"" + name + "\",\"events\":[]}]});";
    };
    harness.script.on("www.apple.com", folder + "system_status_en_US.js", {{.body = file("Mail")}});
    harness.script.on("www.apple.com", folder + "developer/system_status_en_US.js",
                      {{.body = file("Forums")},
                       {.status = 404},
                       {.status = 304},
                       {.body = std::string(AppleStatusAPI::kByteLimit + 1, ' ')}});
    EXPECT_EQ(firstService(StatusFeed::consumer), "Mail");
    EXPECT_EQ(firstService(StatusFeed::developer), "Forums");
    using Kind = HTTPClientError::Kind;
    for (const auto& error : {HTTPClientError{Kind::status, 404}, HTTPClientError{Kind::empty},
                              HTTPClientError{Kind::tooLarge}}) {
        EXPECT_EQ(firstService(StatusFeed::developer), description(error));
    }
}

TEST(SignalsAPI, EachIsAskedForAtItsHostAndRefusedAboveSixMebibytes) {
    test::TestServer harness;
    const SignalsAPI api{harness.client};
    const std::string device = R"({"name":"iPhone","firmwares":[]})";
    harness.script.on("api.ipsw.me", "/v4/device/iPhone17,3?type=ipsw", {{.body = device}});
    harness.script.on("api.ipsw.me", "/v4/device/a%2Fb%3Fc?type=ipsw",
                      {{.body = device + std::string(SignalsAPI::kByteLimit, ' ')}});
    harness.script.on("gdmf.apple.com", "/v2/pmv", {{.body = R"({"PublicAssetSets":{}})"}});
    harness.script.on("rss.marketingtools.apple.com", "/api/v2/us/apps/top-paid/25/apps.json",
                      {{.body = R"({"feed":{"results":[]}})"}});
    EXPECT_EQ(outcome(api.signingStatus("iPhone17,3")).value().name, "iPhone");
    EXPECT_TRUE(outcome(api.updateOffers()).has_value());
    EXPECT_TRUE(outcome(api.chart(AppStoreCharts::Kind::topPaid)).has_value());
    const auto large = outcome(api.signingStatus("a/b?c"));
    ASSERT_TRUE(large.has_error());
    EXPECT_EQ(large.error(), FetchError(HTTPClientError{.kind = HTTPClientError::Kind::tooLarge}));
    EXPECT_TRUE(outcome(api.chart(AppStoreCharts::Kind::topFree)).has_error());
}

}  // namespace
}  // namespace kit
