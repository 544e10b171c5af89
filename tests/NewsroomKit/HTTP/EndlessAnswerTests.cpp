#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TestServer.h"
#include "tests/support/RawTLSServer.h"

namespace kit::test {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using namespace std::string_view_literals;
using ::test::RawTLSServer;

/// A client of servers that it finds by their real addresses.
struct Client {
    explicit Client(const std::vector<std::string>& authorities) {
        const auto file = folder.path() / "authorities.pem";
        std::ofstream out(file);
        for (const auto& authority : authorities) out << authority;
        out.close();
        transport.emplace(CurlTransport::Options{.caFile = file});
        auto configuration = impatient();
        configuration.requestTimeout = 10s;
        configuration.resourceTimeout = 1s;
        http.emplace(*transport, configuration);
    }

    TemporaryFolder folder;
    std::optional<CurlTransport> transport;
    std::optional<HTTPClient> http;
};

std::string repeated(std::string_view text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
}

const std::string kTooLarge = "The response was larger than the safety limit.";

TEST(EndlessAnswers, EndAtTheLimitThatTheyPass) {
    const std::string line = "X-Line: " + std::string(1000, 'a') + "\r\n";
    struct Case {
        const char* name;
        std::string opening;
        std::string endless;
    };
    const std::vector<Case> cases{
        {"headers", "HTTP/1.1 200 OK\r\n", repeated(line, 60)},
        {"one header line", "HTTP/1.1 200 OK\r\nX: ", std::string(60'000, 'a')},
        {"trailers", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nnews\r\n0\r\n",
         repeated(line, 60)},
        {"interim answers", "", repeated("HTTP/1.1 103 Early Hints\r\n\r\n", 1000)},
        {"the body of a redirect",
         "HTTP/1.1 302 Found\r\nLocation: /b\r\nTransfer-Encoding: chunked\r\n\r\n",
         repeated("5\r\naaaaa\r\n", 5000)},
        {"a body that decodes to nothing",
         "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n\r\n\x1f\x8b\x08\0\0\0\0\0\0\x03"s,
         repeated("\0\0\0\xff\xff"sv, 10'000)},
    };
    for (const auto& c : cases) {
        RawTLSServer server({.opening = c.opening, .endless = c.endless});
        Client client({server.authorityPEM()});
        const auto done = exchange(*client.http, server.url());
        EXPECT_EQ(outcomeText(done.result), kTooLarge) << c.name;
        EXPECT_EQ(done.record.attempts, 1) << c.name;
        EXPECT_LT(done.record.bytesOnWire, 2'000'000U) << c.name;
    }
}

TEST(EndlessAnswers, CannotComeAsFramesOfHTTP2WhichIsNotSpoken) {
    RawTLSServer server({.protocol = "h2", .endless = "never sent"});
    Client client({server.authorityPEM()});
    const auto done = exchange(*client.http, server.url());
    EXPECT_EQ(outcomeText(done.result), "A secure connection couldn't be established.");
}

TEST(EndlessAnswers, HeadersOfAllRedirectsCountTogether) {
    TestServer harness;
    pressroom::Response onward{.status = 302, .headers = {{"Location", "/"}}};
    for (int i = 0; i < 40; ++i) onward.headers.emplace_back("X-Line", std::string(2000, 'a'));
    harness.script.on("feeds.example", "/", {onward, onward, onward, onward, {.body = "news"}});
    EXPECT_EQ(harness.outcome("https://feeds.example/"), kTooLarge);
    harness.script.on("feeds.example", "/", {onward, onward, {.body = "news"}});
    EXPECT_EQ(harness.outcome("https://feeds.example/"), "fresh: news");
}

}  // namespace
}  // namespace kit::test
