#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <boost/asio/bind_cancellation_slot.hpp>
#include <boost/asio/cancellation_signal.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/strand.hpp>
#include <boost/asio/thread_pool.hpp>

#include "tests/support/TestServer.h"
#include "tests/NewsroomKit/HTTP/NameLookup.h"

namespace kit::test {
namespace {

namespace asio = boost::asio;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// One fetch that can be cancelled, on an executor that runs one thing at a time.
class PendingFetch {
public:
    explicit PendingFetch(asio::any_io_executor executor) : executor_(std::move(executor)) {}

    void start(HTTPClient& client, std::string url) {
        asio::co_spawn(executor_, run(client, std::move(url)),
                       asio::bind_cancellation_slot(signal_.slot(), [this](std::exception_ptr e) {
                           threw_ = e != nullptr;
                           finished_ = true;
                       }));
    }

    void cancel() {
        asio::post(executor_, [this] { signal_.emit(asio::cancellation_type::terminal); });
    }

    void cancelAfter(std::chrono::milliseconds delay) {
        timer_.emplace(executor_, delay);
        timer_->async_wait(
            [this](boost::system::error_code) { signal_.emit(asio::cancellation_type::terminal); });
    }

    bool finished() const { return finished_; }
    /// Cancelled before it began: nothing of the client has run.
    bool threw() const { return threw_; }
    const std::string& outcome() const { return outcome_; }

private:
    asio::awaitable<void> run(HTTPClient& client, std::string url) {
        HTTPClient::Request request{
            .url = std::move(url), .conditional = Conditional::yes, .byteLimit = 1000};
        const auto done = co_await client.exchange(std::move(request));
        outcome_ = outcomeText(done.result);
    }

    asio::any_io_executor executor_;
    asio::cancellation_signal signal_;
    std::optional<asio::steady_timer> timer_;
    std::atomic<bool> finished_ = false;
    std::atomic<bool> threw_ = false;
    std::string outcome_;
};

void waitUntil(const std::function<bool()>& condition) {
    const auto end = Clock::now() + 30s;
    while (!condition()) {
        ASSERT_LT(Clock::now(), end) << "gave up waiting";
        std::this_thread::sleep_for(1ms);
    }
}

TEST(Cancellation, endsARequestInFlight) {
    TestServer harness;
    harness.script.on("feeds.example", "/", {{.delivery = {.neverAnswers = true}}});
    asio::thread_pool pool(1);
    PendingFetch fetch(pool.get_executor());
    fetch.start(harness.client, "https://feeds.example/");
    waitUntil([&] { return harness.server.hits() == 1; });
    fetch.cancel();
    pool.join();
    EXPECT_EQ(fetch.outcome(), "Cancelled");
    EXPECT_EQ(harness.server.hits(), 1U);
}

TEST(Cancellation, endsARequestThatIsStillQueued) {
    TestServer harness;
    harness.script.on("feeds.example", "/", {{.delivery = {.neverAnswers = true}}});
    asio::io_context io;
    PendingFetch fetch(io.get_executor());
    fetch.start(harness.client, "https://feeds.example/");
    fetch.cancel();
    io.run_for(5s);
    EXPECT_TRUE(fetch.finished());
    EXPECT_EQ(fetch.outcome(), "Cancelled");
}

TEST(Cancellation, endsThePauseBeforeARetry) {
    auto patient = impatient();
    patient.retryPause = 1h;
    TestServer harness(patient);
    harness.script.on("feeds.example", "/", {{.status = 503}});
    asio::thread_pool pool(1);
    PendingFetch fetch(pool.get_executor());
    fetch.start(harness.client, "https://feeds.example/");
    waitUntil([&] { return harness.server.hits() == 1; });
    fetch.cancelAfter(50ms);
    pool.join();
    EXPECT_EQ(fetch.outcome(), "Cancelled");
    EXPECT_EQ(harness.server.hits(), 1U);
}

TEST(CurlTransport, endsEverythingInFlightWhenItGoesWellUnderASecond) {
    TestServer harness;
    harness.script.on("feeds.example", "/", {{.delivery = {.neverAnswers = true}}});
    auto transport = std::make_unique<CurlTransport>(
        CurlTransport::Options{.connectTo = "127.0.0.1:" + std::to_string(harness.server.port()),
                               .caFile = harness.authorityFile()});
    HTTPClient client(*transport, impatient());
    asio::thread_pool pool(2);
    std::vector<std::unique_ptr<PendingFetch>> fetches;
    for (int i = 0; i < 50; ++i) {
        fetches.push_back(std::make_unique<PendingFetch>(asio::make_strand(pool)));
        fetches.back()->start(client, "https://feeds.example/");
    }
    waitUntil([&] { return harness.server.hits() == fetches.size(); });
    const auto start = Clock::now();
    transport.reset();
    pool.join();
    EXPECT_LT(Clock::now() - start, 500ms);
    for (const auto& fetch : fetches) EXPECT_EQ(fetch->outcome(), "Cancelled");
}

TEST(CurlTransport, keepsItsConnections) {
    TestServer harness;
    harness.script.on("feeds.example", "/", {{.body = "news"}});
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(harness.outcome("https://feeds.example/"), "fresh: news");
    }
    EXPECT_EQ(harness.server.connections(), 1U);
}

TEST(CurlTransport, carriesTwoHundredWaitingRequestsOnOneThread) {
    TestServer harness;
    asio::thread_pool pool(1);
    std::vector<std::unique_ptr<PendingFetch>> fetches;
    const auto start = Clock::now();
    for (int i = 0; i < 200; ++i) {
        const auto host = "feed-" + std::to_string(i) + ".example";
        harness.script.on(host, "/", {{.body = host, .delivery = {.delay = 2s}}});
        fetches.push_back(std::make_unique<PendingFetch>(asio::make_strand(pool)));
        fetches.back()->start(harness.client, "https://" + host + "/");
    }
    pool.join();
    EXPECT_LT(Clock::now() - start, 20s);  // one after the other they would take 400 s
    for (std::size_t i = 0; i < fetches.size(); ++i) {
        EXPECT_EQ(fetches[i]->outcome(), "fresh: feed-" + std::to_string(i) + ".example");
    }
}

TEST(CurlTransport, answersEveryOneOfManyRequestsCancelledAtRandom) {
    TestServer harness(impatient(), {.threads = 2});
    const std::vector<pressroom::Response> answers{
        {.body = "news"},
        {.status = 304},
        {.status = 503},
        {.body = "news", .delivery = {.delay = 30ms}},
        {.delivery = {.neverAnswers = true}},
        {.delivery = {.hangsUp = true}},
        {.body = "news", .delivery = {.trickleBytes = 1, .trickleInterval = 10ms}},
        {.body = std::string(2000, 'x'),
         .delivery = {.framing = pressroom::Delivery::Framing::chunked}},
    };
    std::mt19937 dice(20261121);
    std::uniform_int_distribution<int> milliseconds(0, 150);
    asio::thread_pool pool(3);
    std::vector<std::unique_ptr<PendingFetch>> fetches;
    for (std::size_t i = 0; i < 200; ++i) {
        const auto host = "feed-" + std::to_string(i) + ".example";
        harness.script.on(host, "/", {answers[i % answers.size()]});
        fetches.push_back(std::make_unique<PendingFetch>(asio::make_strand(pool)));
        fetches.back()->start(harness.client, "https://" + host + "/");
        fetches.back()->cancelAfter(std::chrono::milliseconds(milliseconds(dice)));
    }
    pool.join();
    for (const auto& fetch : fetches) {
        EXPECT_TRUE(fetch->finished());
        EXPECT_TRUE(fetch->threw() || !fetch->outcome().empty());
    }
}

/// Names really are looked up here, through the stand-in for the system's resolver.
TEST(NameLookups, thatFailAreToldFromServersThatDo) {
    TestServer harness;
    CurlTransport transport({.caFile = harness.authorityFile()});
    HTTPClient client(transport, impatient());
    const auto done = exchange(client, "https://unknown.example/");
    EXPECT_EQ(outcomeText(done.result), "The server's name can't be found.");
    EXPECT_EQ(done.record.attempts, 2);
}

TEST(NameLookups, thatNeverEndHoldUpNobodyElse) {
    const BlackHole hole("black-hole.example");
    TestServer harness;
    harness.script.on("127.0.0.1", "/", {{.body = "news"}});
    auto configuration = impatient();
    configuration.requestTimeout = 300ms;
    std::optional<CurlTransport> transport(
        std::in_place, CurlTransport::Options{.caFile = harness.authorityFile()});
    HTTPClient client(*transport, configuration);
    HTTPClient patient(*transport, impatient());
    asio::thread_pool pool(1);
    PendingFetch timedOut(asio::make_strand(pool));
    PendingFetch cancelled(asio::make_strand(pool));
    PendingFetch left(asio::make_strand(pool));
    timedOut.start(client, "https://black-hole.example/");
    cancelled.start(patient, "https://black-hole.example/");
    left.start(patient, "https://black-hole.example/");
    waitUntil([&] { return hole.visitors() >= 3; });

    const auto url = "https://127.0.0.1:" + std::to_string(harness.server.port()) + "/";
    const auto start = Clock::now();
    while (!timedOut.finished()) {
        ASSERT_EQ(outcomeText(exchange(client, url).result), "fresh: news");
    }
    cancelled.cancel();
    waitUntil([&] { return cancelled.finished(); });
    EXPECT_EQ(outcomeText(exchange(client, url).result), "fresh: news");
    transport.reset();
    pool.join();
    EXPECT_LT(Clock::now() - start, 5s);
    EXPECT_EQ(timedOut.outcome(), "The server took too long to answer.");
    EXPECT_EQ(cancelled.outcome(), "Cancelled");
    EXPECT_EQ(left.outcome(), "Cancelled");
}

}  // namespace
}  // namespace kit::test
