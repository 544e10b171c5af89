#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/support/HTTPBench.h"
#include "tests/support/RawTLSServer.h"

namespace newsroom::test {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using namespace std::string_view_literals;
using ::test::http2Frame;
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
const std::string kTimedOut = "The server took too long to answer.";

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

TEST(EndlessAnswers, FramesWithoutContentEndInTimeAndHoldNobodyUp) {
    const std::string settings = http2Frame(4, 0, 0) + http2Frame(4, 1, 0);
    const std::string ok = http2Frame(1, 4, 1, "\x88");  // ":status: 200"
    const std::string increment = "\0\0\0\1"s;
    struct Case {
        const char* name;
        std::string opening;
        std::string frame;
        std::string outcome;
        std::chrono::milliseconds pause{0};
    };
    const std::vector<Case> cases{
        {"no data", settings + ok, http2Frame(0, 0, 1), kTooLarge},
        {"no head and no data", settings, http2Frame(8, 0, 1, increment), kTooLarge},
        {"unknown frames", settings + ok, http2Frame(0x5A, 0, 1), kTooLarge},
        {"no data, slowly", settings + ok, http2Frame(0, 0, 1), kTimedOut, 10ms},
    };
    for (const auto& c : cases) {
        RawTLSServer hostile({.protocol = "h2",
                              .opening = c.opening,
                              .endless = repeated(c.frame, 2000),
                              .pause = c.pause});
        HTTPBench bench;
        bench.script.on("127.0.0.1", "/", {{.body = "news"}});
        Client client({hostile.authorityPEM(), bench.server.authorityPEM()});

        std::optional<HTTPClient::Exchange> ended;
        std::atomic<bool> over = false;
        std::jthread fetching([&] {
            ended = exchange(*client.http, hostile.url());
            over = true;
        });
        const auto neighbour = "https://127.0.0.1:" + std::to_string(bench.server.port()) + "/";
        std::chrono::microseconds longest{0};
        while (!over) {
            const auto done = exchange(*client.http, neighbour);
            EXPECT_EQ(outcomeText(done.result), "fresh: news") << c.name;
            longest = std::max(longest, done.record.elapsed);
        }
        fetching.join();
        EXPECT_EQ(outcomeText(ended->result), c.outcome) << c.name;
        EXPECT_LT(ended->record.elapsed, 3s) << c.name << ": two attempts of a second";
        EXPECT_LT(longest, 2s) << c.name;
    }
}

TEST(EndlessAnswers, HeadersOfAllRedirectsCountTogether) {
    HTTPBench bench;
    pressroom::Response onward{.status = 302, .headers = {{"Location", "/"}}};
    for (int i = 0; i < 40; ++i) onward.headers.emplace_back("X-Line", std::string(2000, 'a'));
    bench.script.on("feeds.example", "/", {onward, onward, onward, onward, {.body = "news"}});
    EXPECT_EQ(bench.outcome("https://feeds.example/"), kTooLarge);
    bench.script.on("feeds.example", "/", {onward, onward, {.body = "news"}});
    EXPECT_EQ(bench.outcome("https://feeds.example/"), "fresh: news");
}

}  // namespace
}  // namespace newsroom::test
