#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "tests/support/TestServer.h"

namespace kit::test {
namespace {

using namespace std::chrono_literals;
using pressroom::Response;
using Request = HTTPClient::Request;

const std::string kRecord = R"({"token":"s3cret"})";

Request writing(HTTPMethod method, std::string url) {
    return {.url = std::move(url),
            .method = method,
            .body = kRecord,
            .contentType = "application/json",
            .byteLimit = 1000};
}

Response to(int status, std::string location) {
    return {.status = status, .headers = {{"Location", std::move(location)}}};
}

/// "PUT application/json 18", or "-" when the address was never asked.
std::string lastRequest(const TestServer& harness, const char* host, const char* target) {
    const auto requests = harness.script.requests(host, target);
    if (requests.empty()) return "-";
    const auto& last = requests.back();
    return last.method + " " + std::string(last.header("content-type").value_or("-")) + " " +
           std::to_string(last.body.size());
}

TEST(Requests, carryTheirMethodAndBody) {
    const struct {
        HTTPMethod method;
        const char* arrived;
    } cases[] = {
        {HTTPMethod::get, "GET - 0"},
        {HTTPMethod::post, "POST application/json 18"},
        {HTTPMethod::put, "PUT application/json 18"},
        {HTTPMethod::remove, "DELETE application/json 18"},
    };
    for (const auto& c : cases) {
        TestServer harness;
        harness.script.on("store.example", "/r", {{.body = "done"}});
        const auto done = exchange(harness.client, writing(c.method, "https://store.example/r"));
        EXPECT_EQ(outcomeText(done.result), "fresh: done") << c.arrived;
        EXPECT_EQ(lastRequest(harness, "store.example", "/r"), c.arrived);
    }
    TestServer harness;
    harness.script.on("store.example", "/r", {{.status = 204}});
    auto large = writing(HTTPMethod::put, "https://store.example/r");
    large.body.assign(2'000'000, 'x');
    const auto done = exchange(harness.client, large);
    EXPECT_EQ(outcomeText(done.result), "fresh: ") << "an empty answer is one";
    EXPECT_LT(done.record.elapsed, 900ms) << "the server is not asked first";
    auto removal = writing(HTTPMethod::remove, "https://store.example/r");
    removal.body = removal.contentType = "";
    exchange(harness.client, removal);
    EXPECT_EQ(lastRequest(harness, "store.example", "/r"), "DELETE - 0");
}

TEST(Requests, withABodyAreRedirectedWithinTheirOriginOnly) {
    const std::string same = "https://store.example/b", other = "https://other.example/b";
    const struct {
        HTTPMethod method;
        int status;
        std::string location;
        const char* arrived;  ///< where the redirect leads to
        const char* outcome;
    } cases[] = {
        {HTTPMethod::put, 307, same, "PUT application/json 18", "fresh: done"},
        {HTTPMethod::post, 308, "/b", "POST application/json 18", "fresh: done"},
        {HTTPMethod::put, 307, "https://store.example:443/b", "PUT application/json 18",
         "fresh: done"},
        {HTTPMethod::put, 307, other, "-", "The server answered 307."},
        {HTTPMethod::remove, 308, other, "-", "The server answered 308."},
        {HTTPMethod::put, 307, "https://store.example:8443/b", "-", "The server answered 307."},
        {HTTPMethod::put, 307, "http://store.example/b", "-", "The server answered 307."},
        {HTTPMethod::post, 303, same, "GET - 0", "fresh: done"},
        {HTTPMethod::post, 303, other, "GET - 0", "fresh: done"},
        {HTTPMethod::put, 303, "http://store.example/b", "-", "The address isn't secure (https)."},
        {HTTPMethod::post, 301, same, "-", "The server answered 301."},
        {HTTPMethod::put, 302, same, "-", "The server answered 302."},
        {HTTPMethod::put, 307, "", "-", "The server answered 307."},
    };
    for (const auto& c : cases) {
        TestServer harness;
        harness.script.on("store.example", "/a", {to(c.status, c.location)});
        harness.script.on("store.example", "/b", {{.body = "done"}});
        harness.script.on("other.example", "/b", {{.body = "done"}});
        const auto done = exchange(harness.client, writing(c.method, "https://store.example/a"));
        const auto* host = c.location == other ? "other.example" : "store.example";
        EXPECT_EQ(outcomeText(done.result), c.outcome) << c.status << " " << c.location;
        EXPECT_EQ(lastRequest(harness, host, "/b"), c.arrived) << c.status << " " << c.location;
    }
    TestServer harness;
    harness.script.on("store.example", "/a", {to(307, "/a")});
    const auto done = exchange(harness.client, writing(HTTPMethod::put, "https://store.example/a"));
    EXPECT_EQ(outcomeText(done.result), "The server redirected too many times.");
}

TEST(Requests, areRepeatedUnlessTheServerMayHaveCarriedThemOut) {
    for (const auto& first : {Response{.status = 503}, Response{.delivery = {.hangsUp = true}}}) {
        for (const auto method : {HTTPMethod::put, HTTPMethod::remove, HTTPMethod::post}) {
            TestServer harness;
            harness.script.on("store.example", "/warm", {{.body = "warm"}});
            harness.script.on("store.example", "/r", {first, {.body = "done"}});
            harness.outcome("https://store.example/warm");
            exchange(harness.client, writing(method, "https://store.example/r"));
            EXPECT_EQ(harness.server.hits("store.example", "/r"),
                      method == HTTPMethod::post ? 1U : 2U)
                << first.status;
        }
    }
}

TEST(Requests, giveTheAnswersHeadersInAnyLetterCase) {
    TestServer harness;
    harness.script.on(
        "store.example", "/r",
        {{.status = 409, .headers = {{"X-Revision", "3"}, {"Link", "one"}, {"LINK", "two"}}}});
    const auto done = exchange(harness.client, writing(HTTPMethod::put, "https://store.example/r"));
    EXPECT_EQ(outcomeText(done.result), "The server answered 409.");
    EXPECT_EQ(done.headers.find("x-revision"), "3");
    EXPECT_EQ(done.headers.find("link"), "one");
    EXPECT_EQ(done.headers.find("revision"), std::nullopt);

    harness.script.on("store.example", "/old", {to(302, "/new")});
    harness.script.on("store.example", "/new", {{.headers = {{"X-Name", "new"}}, .body = "news"}});
    const auto moved = harness.exchange("https://store.example/old");
    EXPECT_EQ(moved.headers.find("X-NAME"), "new");
    EXPECT_EQ(moved.headers.find("Location"), std::nullopt) << "of the last answer only";
}

TEST(Requests, sayWhoTheyComeFromInOneLine) {
    TestServer harness;
    harness.script.on("store.example", "/r", {{.body = "news"}});
    Request request{.url = "https://store.example/r",
                    .byteLimit = 1000,
                    .userAgent = "Reader (reader@mail.example)\r\nCookie: a=b"};
    ASSERT_EQ(outcomeText(exchange(harness.client, request).result), "fresh: news");
    const auto asked = harness.script.requests("store.example", "/r").back();
    EXPECT_EQ(asked.header("user-agent"), "Reader (reader@mail.example)Cookie: a=b");
    EXPECT_FALSE(asked.header("cookie"));
}

TEST(Requests, takeATimeOfTheirOwn) {
    HTTPClient::Configuration configuration = impatient();
    configuration.requestTimeout = 200ms;
    TestServer harness(configuration);
    harness.script.on("store.example", "/r", {{.body = "news", .delivery = {.delay = 700ms}}});
    Request request{.url = "https://store.example/r", .byteLimit = 1000, .timeLimit = 10s};
    EXPECT_EQ(outcomeText(exchange(harness.client, request).result), "fresh: news");
    request.timeLimit = 50ms;
    const auto late = exchange(harness.client, request);
    EXPECT_EQ(outcomeText(late.result), "The server took too long to answer.");
    EXPECT_LT(late.record.elapsed, 600ms);
}

}  // namespace
}  // namespace kit::test
