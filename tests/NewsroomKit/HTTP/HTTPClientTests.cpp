#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "PressRoom/Server/Conditional.h"
#include "tests/support/TestServer.h"

namespace kit::test {
namespace {

using namespace std::chrono_literals;
using pressroom::Response;

TEST(HTTPClient, refusesAnythingButHTTPSWithoutTraffic) {
    TestServer harness;
    for (const char* url : {"http://feeds.example/", "file:///etc/passwd", "feeds.example",
                            "HTTP://feeds.example/", "httpss://feeds.example/", "https", ""}) {
        EXPECT_EQ(harness.outcome(url), "The address isn't secure (https).") << url;
    }
    EXPECT_EQ(harness.server.connections(), 0U);
}

TEST(HTTPClient, takesTheSchemeInAnyLetterCase) {
    TestServer harness;
    harness.script.on("feeds.example", "/a", {{.body = "news"}});
    EXPECT_EQ(harness.outcome("HttpS://feeds.example/a"), "fresh: news");
}

TEST(HTTPClient, refusesAddressesThatNamePlacesNobodyCouldAsk) {
    TestServer harness;
    for (const std::string& url : {std::string("https://"), std::string("https://exa mple/"),
                                   std::string("https://feeds.example/\r\nCookie: a"),
                                   std::string("https://feeds.example/\0b", 24),
                                   "https://x/" + std::string(9'000'000, 'a')}) {
        EXPECT_EQ(harness.outcome(url), "The address can't be read.") << url.substr(0, 40);
    }
    EXPECT_EQ(harness.server.connections(), 0U);
}

TEST(HTTPClient, acceptsABodyOfExactlyTheLimitAndNotOneByteMore) {
    const std::string body(200'000, 'x');
    struct Case {
        const char* name;
        pressroom::Delivery delivery;
        bool gzipped;
    };
    const std::vector<Case> cases{
        {"announced", {}, false},
        {"chunked", {.framing = pressroom::Delivery::Framing::chunked}, false},
        {"until close", {.framing = pressroom::Delivery::Framing::untilClose}, false},
        {"gzipped", {}, true},
    };
    for (const auto& [name, delivery, gzipped] : cases) {
        TestServer harness;
        Response response{.body = gzipped ? pressroom::gzip(body) : body, .delivery = delivery};
        if (gzipped) response.headers = {{"Content-Encoding", "gzip"}};
        harness.script.on("feeds.example", "/", {response});
        EXPECT_EQ(harness.outcome("https://feeds.example/", Conditional::no, body.size()),
                  "fresh: " + body)
            << name;
        EXPECT_EQ(harness.outcome("https://feeds.example/", Conditional::no, body.size() - 1),
                  "The response was larger than the safety limit.")
            << name;
    }
}

TEST(HTTPClient, failsOnAnAnnouncedLengthOverTheLimitBeforeReading) {
    TestServer harness;
    harness.script.on("feeds.example", "/",
                      {{.body = std::string(2000, 'x'),
                        .delivery = {.trickleBytes = 1, .trickleInterval = 20s}}});
    const auto done = harness.exchange("https://feeds.example/");
    EXPECT_EQ(outcomeText(done.result), "The response was larger than the safety limit.");
    EXPECT_LT(done.record.elapsed, 5s);
}

TEST(HTTPClient, stopsAGzipBombAtTheLimitOfItsDecodedBytes) {
    TestServer harness;
    const auto bomb = pressroom::gzip(std::string(50'000'000, '\0'));
    harness.script.on("feeds.example", "/",
                      {{.headers = {{"Content-Encoding", "gzip"}}, .body = bomb}});
    const auto done = harness.exchange("https://feeds.example/", Conditional::no, 1'000'000);
    EXPECT_EQ(outcomeText(done.result), "The response was larger than the safety limit.");
    EXPECT_LT(done.record.bytesOnWire, 100'000U);
}

TEST(HTTPClient, judgesTheStatusBeforeTheSizeAndTheSizeBeforeTheEmptiness) {
    TestServer harness;
    const std::string large(2000, 'x');
    struct Case {
        Response response;
        std::string outcome;
    };
    const std::vector<Case> cases{
        {{.status = 200}, "The server sent nothing."},
        {{.status = 204}, "The server sent nothing."},
        {{.status = 203, .body = "whole"}, "fresh: whole"},
        {{.status = 206, .body = "part"}, "The server answered 206."},
        {{.status = 304}, "not modified"},
        {{.status = 304, .headers = {{"Location", "https://feeds.example/b"}}}, "not modified"},
        {{.status = 302, .body = "no Location"}, "The server answered 302."},
        {{.status = 404, .body = large}, "The server answered 404."},
        {{.status = 404}, "The server answered 404."},
        {{.status = 503, .body = large}, "The server answered 503."},
        {{.status = 599}, "The server answered 599."},
    };
    for (const auto& [response, outcome] : cases) {
        harness.script.on("feeds.example", "/a", {response});
        EXPECT_EQ(harness.outcome("https://feeds.example/a"), outcome) << response.status;
    }
}

TEST(HTTPClient, doesNotWaitForTheBodyOfARefusal) {
    TestServer harness;
    harness.script.on("feeds.example", "/",
                      {{.status = 404,
                        .body = "gone, slowly",
                        .delivery = {.trickleBytes = 1, .trickleInterval = 20s}}});
    const auto done = harness.exchange("https://feeds.example/");
    EXPECT_EQ(outcomeText(done.result), "The server answered 404.");
    EXPECT_LT(done.record.elapsed, 5s);
}

TEST(HTTPClient, triesOnceMoreAfterAFailureThatMayPass) {
    struct Case {
        Response first;
        std::size_t hits;
        std::string outcome;
    };
    const std::vector<Case> cases{
        {{.status = 404}, 1, "The server answered 404."},
        {{.status = 401}, 1, "The server answered 401."},
        {{.status = 408}, 2, "fresh: news"},
        {{.status = 429}, 2, "fresh: news"},
        {{.status = 500}, 2, "fresh: news"},
        {{.status = 503}, 2, "fresh: news"},
        {{.status = 200}, 1, "The server sent nothing."},
        {{.delivery = {.hangsUp = true}}, 2, "fresh: news"},
        {{.body = "ne", .delivery = {.closeAfter = 1}}, 2, "fresh: news"},
    };
    for (const auto& [first, hits, outcome] : cases) {
        TestServer harness;
        harness.script.on("feeds.example", "/", {first, {.body = "news"}});
        const auto done = harness.exchange("https://feeds.example/");
        EXPECT_EQ(outcomeText(done.result), outcome) << first.status;
        EXPECT_EQ(harness.server.hits("feeds.example", "/"), hits) << first.status;
        EXPECT_EQ(done.record.attempts, static_cast<int>(hits)) << first.status;
    }
}

TEST(HTTPClient, reportsTheSecondFailureAndTriesNoThirdTime) {
    TestServer harness;
    harness.script.on("feeds.example", "/", {{.status = 503}, {.status = 500}, {.body = "late"}});
    EXPECT_EQ(harness.outcome("https://feeds.example/"), "The server answered 500.");
    EXPECT_EQ(harness.server.hits(), 2U);
}

TEST(HTTPClient, pausesBetweenHalfASecondAndEightTenthsBeforeItTriesAgain) {
    TestServer harness(HTTPClient::Configuration{});
    harness.script.on("feeds.example", "/", {{.status = 503}, {.body = "news"}});
    const auto done = harness.exchange("https://feeds.example/");
    EXPECT_EQ(outcomeText(done.result), "fresh: news");
    EXPECT_GE(done.record.elapsed, 500ms);
    EXPECT_LT(done.record.elapsed, 5s);
}

TEST(HTTPClient, saysWhoItIsAndWantsNothingStale) {
    TestServer harness;
    harness.script.on("feeds.example", "/a?b=c%20d", {{.body = "news"}});
    ASSERT_EQ(harness.outcome("https://feeds.example/a?b=c%20d"), "fresh: news");
    const auto asked = harness.script.requests("feeds.example", "/a?b=c%20d").at(0);
    EXPECT_EQ(asked.header("user-agent"),
              "TarnwickBrell/1.0 (Macintosh; macOS) +https://tarnwick-brell.example/");
    EXPECT_EQ(asked.header("cache-control"), "no-cache");
    EXPECT_EQ(asked.header("if-none-match"), std::nullopt);
    EXPECT_EQ(asked.header("cookie"), std::nullopt);
}

/// The validators a request carried, "-" for none.
std::string validatorsOf(const pressroom::Request& request) {
    return std::string(request.header("if-none-match").value_or("-")) + " " +
           std::string(request.header("if-modified-since").value_or("-"));
}

TEST(HTTPClient, asksConditionallyWithThePairOfTheLastAnswerAsAWhole) {
    TestServer harness;
    harness.script.on("feeds.example", "/",
                      {{.headers = {{"ETag", "\"1\""}, {"Last-Modified", "Monday"}}, .body = "one"},
                       {.status = 304, .headers = {{"ETag", "\"not kept\""}}},
                       {.headers = {{"ETag", "W/\"2\""}}, .body = "two"},
                       {.status = 404, .headers = {{"ETag", "\"not kept\""}}},
                       {.headers = {{"Last-Modified", "Tuesday"}}, .body = "three"},
                       {.body = "four"},
                       {.body = "five"}});
    std::vector<std::string> outcomes;
    for (int i = 0; i < 7; ++i) {
        outcomes.push_back(harness.outcome("https://feeds.example/", Conditional::yes));
    }
    EXPECT_EQ(outcomes, (std::vector<std::string>{"fresh: one", "not modified", "fresh: two",
                                                  "The server answered 404.", "fresh: three",
                                                  "fresh: four", "fresh: five"}));
    std::vector<std::string> sent;
    for (const auto& request : harness.script.requests("feeds.example", "/")) {
        sent.push_back(validatorsOf(request));
    }
    EXPECT_EQ(sent, (std::vector<std::string>{"- -", "\"1\" Monday", "\"1\" Monday", "W/\"2\" -",
                                              "W/\"2\" -", "- Tuesday", "- -"}));
}

TEST(HTTPClient, neitherSendsNorStoresValidatorsUnconditionally) {
    TestServer harness;
    harness.script.on("feeds.example", "/", {{.headers = {{"ETag", "\"1\""}}, .body = "news"}});
    harness.client.validators().store("https://feeds.example/", {.entityTag = "\"kept\""});
    ASSERT_EQ(harness.outcome("https://feeds.example/", Conditional::no), "fresh: news");
    EXPECT_EQ(validatorsOf(harness.script.requests("feeds.example", "/").at(0)), "- -");
    EXPECT_EQ(harness.client.validators().find("https://feeds.example/").entityTag, "\"kept\"");
}

TEST(HTTPClient, keepsTheStoredPairWhenTheNewBodyIsRefused) {
    TestServer harness;
    harness.script.on(
        "feeds.example", "/",
        {{.headers = {{"ETag", "\"2\""}}, .body = std::string(2000, 'x')},
         {.headers = {{"ETag", "\"3\""}}},
         {.headers = {{"ETag", "\"4\""}}, .body = "x", .delivery = {.hangsUp = true}}});
    harness.client.validators().store("https://feeds.example/", {.entityTag = "\"1\""});
    for (int i = 0; i < 3; ++i) harness.outcome("https://feeds.example/", Conditional::yes);
    EXPECT_EQ(harness.client.validators().find("https://feeds.example/").entityTag, "\"1\"");
}

TEST(HTTPClient, reportsHowLongTheServerWantsToBeLeftAlone) {
    const auto inTwoMinutes =
        std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()) + 120s;
    struct Case {
        int status;
        std::string header;
        std::optional<std::chrono::seconds> pause;
    };
    const std::vector<Case> cases{
        {429, "120", 120s},
        {503, "3600", 3600s},
        {503, pressroom::httpDate(inTwoMinutes), 120s},
        {503, "Sun, 06 Nov 1994 08:49:37 GMT", std::nullopt},
        {429, "0", std::nullopt},
        {429, "-5", std::nullopt},
        {429, "soon", std::nullopt},
        {503, "31536000000", 31'536'000'000s},
        {500, "120", std::nullopt},
    };
    TestServer harness;
    for (const auto& [status, header, pause] : cases) {
        harness.script.on("feeds.example", "/",
                          {{.status = status, .headers = {{"Retry-After", header}}}});
        const auto record = harness.exchange("https://feeds.example/").record;
        EXPECT_EQ(record.retryAfter.has_value(), pause.has_value()) << status << " " << header;
        if (pause && record.retryAfter) {
            EXPECT_LE(std::chrono::abs(*record.retryAfter - *pause), 5s) << header;
        }
    }
    const Response pausing{.status = 429, .headers = {{"Retry-After", "120"}}};
    const std::vector<std::pair<Response, std::optional<std::chrono::seconds>>> seconds{
        {{.status = 500}, 120s},
        {{.delivery = {.hangsUp = true}}, 120s},
        {{.status = 503, .headers = {{"Retry-After", "60"}}}, 60s},
        {{.body = "news"}, std::nullopt},
    };
    for (const auto& [second, pause] : seconds) {
        harness.script.on("feeds.example", "/", {pausing, second});
        EXPECT_EQ(harness.exchange("https://feeds.example/").record.retryAfter, pause)
            << second.status;
    }
    harness.script.on("feeds.example", "/", {{.status = 429}});
    EXPECT_EQ(harness.exchange("https://feeds.example/").record.retryAfter, std::nullopt);
}

TEST(HTTPClient, keepsAttemptsWithAPaceApartRetriesToo) {
    const auto secondsFor = [](bool isPaced, std::chrono::milliseconds pace) {
        auto configuration = impatient();
        configuration.isPaced = isPaced;
        TestServer harness(configuration);
        harness.script.on("feeds.example", "/", {{.status = 500}, {.body = "news"}});
        const auto begin = std::chrono::steady_clock::now();
        for (int request = 0; request < 2; ++request) {
            exchange(harness.client,
                     {.url = "https://feeds.example/", .byteLimit = 100, .pace = pace});
        }
        return std::chrono::steady_clock::now() - begin;
    };
    EXPECT_GE(secondsFor(true, 200ms), 400ms) << "three attempts";
    EXPECT_LT(secondsFor(false, 1h), 60s);
}

TEST(HTTPClient, countsTheBytesAsTheyWereOnTheWireOverAllAttempts) {
    TestServer harness;
    const auto packed = pressroom::gzip(std::string(100'000, 'x'));
    harness.script.on(
        "feeds.example", "/",
        {{.status = 503}, {.headers = {{"Content-Encoding", "gzip"}}, .body = packed}});
    const auto record = harness.exchange("https://feeds.example/", Conditional::no, 100'000).record;
    EXPECT_EQ(record.status, 200);
    EXPECT_GT(record.bytesOnWire, packed.size());
    EXPECT_LT(record.bytesOnWire, packed.size() + 1000);
}

}  // namespace
}  // namespace kit::test
