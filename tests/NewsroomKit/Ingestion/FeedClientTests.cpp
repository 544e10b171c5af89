#include <gtest/gtest.h>

#include <fstream>
#include <future>
#include <map>
#include <thread>

#include <boost/asio/cancellation_signal.hpp>
#include <boost/asio/bind_cancellation_slot.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/use_future.hpp>

#include "NewsroomKit/Ingestion/FeedClient.h"
#include "tests/support/TestServer.h"

namespace kit {
namespace {

namespace asio = boost::asio;
using pressroom::Response;
using test::TestServer;

std::string feedOf(int items, const std::string& host = "a.example") {
    std::string feed = "<rss><channel><title>Sample feed</title>";
    for (int i = 0; i < items; ++i) {
        const auto number = std::to_string(i);
        feed += "<item><title>Story " + number + "</title><link>https://" + host + "/" + number +
                "</link></item>";
    }
    return feed + "</channel></rss>";
}

NewsSource at(const std::string& url) {
    return {.id = url, .name = "Sample", .feedURL = url, .siteURL = url};
}

class FeedClientTest : public ::testing::Test {
protected:
    SourceFetch fetch(const std::string& url) {
        auto result = asio::co_spawn(io_, client_.fetch(at(url)), asio::use_future);
        run();
        return result.get();
    }

    void serve(const std::string& host, const std::string& target, Response response) {
        harness_.script.on(host, target, {std::move(response)});
    }

    void run() {
        io_.restart();
        io_.run();
    }

    static std::string text(const SourceFetch& fetch) {
        if (const auto* failed = std::get_if<SourceFetch::Failed>(&fetch.outcome))
            return failed->text;
        if (const auto* stories = std::get_if<SourceFetch::Stories>(&fetch.outcome)) {
            return std::to_string(stories->list.size()) + " stories of " + stories->feedTitle;
        }
        return "unchanged";
    }

    TestServer harness_;
    CanonicalLinks links_;
    StoryConversion conversion_{links_};
    asio::thread_pool workers_{2};
    asio::io_context io_;
    FeedClient client_{harness_.client,
                       conversion_,
                       workers_,
                       [] { return parseISO8601("2026-11-20T12:00:00Z").value(); },
                       {}};
};

TEST_F(FeedClientTest, EachKindOfAnswerHasItsOutcome) {
    struct Case {
        const char* name;
        Response response;
        const char* outcome;
    };
    const Case cases[] = {
        {"feed", {.body = feedOf(3)}, "3 stories of Sample feed"},
        {"page", {.body = "<html><body>Log in</body></html>"}, "The address didn't return a feed."},
        {"cut", {.body = "<rss><channel><item><title>x"}, "The feed couldn't be read."},
        {"none", {.body = feedOf(0)}, "0 stories of Sample feed"},
        {"gone", {.status = 404}, "The server answered 404."},
        {"empty", {}, "The server sent nothing."},
        {"large",
         {.body = std::string(FeedClient::kByteLimit + 1, 'x')},
         "The response was larger than the safety limit."},
    };
    for (const auto& c : cases) {
        const std::string host = std::string(c.name) + ".example";
        serve(host, "/feed", c.response);
        EXPECT_EQ(text(fetch("https://" + host + "/feed")), c.outcome) << c.name;
    }
    EXPECT_EQ(text(fetch("http://feed.example/feed")), "The address isn't secure (https).");
}

TEST_F(FeedClientTest, AWebPageLeadsToItsFeed) {
    serve("site.example", "/",
          {.body = "<html><head><link rel='alternate' "
                   "type='application/rss+xml' href='/feed'></head>"});
    serve("site.example", "/feed", {.body = feedOf(2)});
    const auto fetched = fetch("https://site.example/");
    ASSERT_EQ(text(fetched), "2 stories of Sample feed");
    EXPECT_EQ(std::get<SourceFetch::Stories>(fetched.outcome).feedURL, "https://site.example/feed");

    // A page that names itself, or leads from page to page, ends.
    serve("loop.example", "/", {.body = "<link rel='alternate' type='rss' href='/'>"});
    EXPECT_EQ(text(fetch("https://loop.example/")), "The address didn't return a feed.");
    EXPECT_EQ(harness_.server.hits("loop.example"), 1u);
}

TEST_F(FeedClientTest, APageWhoseFeedIsOfNoUseSaysWhichFeedAndWhy) {
    const std::string opening = "The page names the feed https://site.example/";
    const std::string middle = ", which can't be used. ";
    const struct {
        std::vector<std::string> links;
        std::string outcome;
    } cases[] = {
        {{"/gone"}, opening + "gone" + middle + "The server answered 404."},
        {{"/page"}, opening + "page" + middle + "The address didn't return a feed."},
        {{"http://site.example/feed"},
         "The page names the feed http://site.example/feed" + middle +
             "The address isn't secure (https)."},
        {{"/gone?token=hush", "/page"},
         opening + "gone?token=…" + middle + "The server answered 404."},
        {{"/gone", "/empty", "/page"}, "0 stories of Sample feed"},
        {{"/gone", "/feed"}, "1 stories of Sample feed"},
        {{"/?token=hush"}, "The address didn't return a feed."},
    };
    serve("site.example", "/page", {.body = "<html>"});
    serve("site.example", "/empty", {.body = feedOf(0)});
    serve("site.example", "/feed", {.body = feedOf(1)});
    for (const auto& c : cases) {
        std::string page = "<html>";
        for (const auto& link : c.links) {
            page += "<link rel='alternate' type='application/rss+xml' href='" + link + "'>";
        }
        serve("site.example", "/?token=hush", {.body = page});
        EXPECT_EQ(text(fetch("https://site.example/?token=hush")), c.outcome);
    }
}

/// For servers on loopback: 127.0.0.1 plays a public address, all others are private.
bool isAnywhereElse(std::string_view ip) { return ip != "127.0.0.1"; }

TEST_F(FeedClientTest, APageLeadsToAPrivateAddressOnlyWhenItLiesAtOneItself) {
    pressroom::ScriptedHandler script;
    pressroom::Server outside(script.handler());
    pressroom::Server inside(script.handler(), {.address = "127.0.0.2"});
    const auto publicURL = "https://127.0.0.1:" + std::to_string(outside.port());
    const auto privateURL = "https://127.0.0.2:" + std::to_string(inside.port());
    const auto pageOf = [](const std::string& feed) {
        return Response{.body =
                            "<html><title>P - x</title><link rel='alternate' type='rss' href='" +
                            feed + "'>"};
    };
    script.on("127.0.0.1", "/", {pageOf(privateURL + "/feed")});
    script.on("127.0.0.1", "/around", {pageOf("/redirect")});
    script.on("127.0.0.1", "/redirect",
              {{.status = 302, .headers = {{"Location", privateURL + "/feed"}}}});
    script.on("127.0.0.2", "/", {pageOf("/feed")});
    script.on("127.0.0.2", "/feed", {{.body = feedOf(1)}});

    const test::TemporaryFolder folder;
    const auto authorities = folder.path() / "authorities.pem";
    outside.writeAuthority(authorities);
    std::ofstream(authorities, std::ios::app) << inside.authorityPEM();
    CurlTransport transport({.caFile = authorities, .isPrivate = isAnywhereElse});
    HTTPClient http(transport, test::impatient());
    FeedClient client(http, conversion_, workers_, [] { return Instant(); }, {});
    const auto outcome = [&](const std::string& url) {
        auto result = asio::co_spawn(io_, client.fetch(at(url)), asio::use_future);
        run();
        return result.get();
    };
    const std::string refusal =
        ", which can't be used. The server redirected to a private network address.";
    EXPECT_EQ(text(outcome(publicURL + "/")),
              "The page names the feed " + privateURL + "/feed" + refusal);
    EXPECT_EQ(text(outcome(publicURL + "/around")),
              "The page names the feed " + publicURL + "/redirect" + refusal);
    EXPECT_EQ(inside.connections(), 0U);
    const auto own = outcome(privateURL + "/");
    ASSERT_EQ(text(own), "1 stories of Sample feed");
    EXPECT_EQ(std::get<SourceFetch::Stories>(own.outcome).pageTitle, "P");
}

TEST_F(FeedClientTest, RelativeLinksAreCompletedByTheAddressOfTheFeed) {
    serve("relative.example", "/feeds/news",
          {.body = "<rss><channel><item><title>T</title><link>/1</link></item></channel></rss>"});
    const auto fetched = fetch("https://relative.example/feeds/news");
    const auto* stories = std::get_if<SourceFetch::Stories>(&fetched.outcome);
    ASSERT_TRUE(stories);
    EXPECT_EQ(stories->list.at(0).link, "https://relative.example/1");
}

TEST_F(FeedClientTest, ACancelledFetchAbandonsTheParsingOfItsBody) {
    serve("long.example", "/feed", {.body = feedOf(3)});
    // The workers are busy, so the body waits for them when the cancellation comes.
    std::promise<void> release;
    const auto released = release.get_future().share();
    for (int worker = 0; worker < 2; ++worker) {
        asio::post(workers_, [released] { released.wait(); });
    }
    asio::cancellation_signal cancel;
    SourceFetch fetched;
    asio::co_spawn(io_, client_.fetch(at("https://long.example/feed")),
                   asio::bind_cancellation_slot(
                       cancel.slot(), [&](const std::exception_ptr&, SourceFetch outcome) {
                           fetched = std::move(outcome);
                       }));
    asio::steady_timer timer(io_, std::chrono::milliseconds(300));
    timer.async_wait([&](auto) {
        cancel.emit(asio::cancellation_type::terminal);
        release.set_value();
    });
    run();
    const auto* failed = std::get_if<SourceFetch::Failed>(&fetched.outcome);
    ASSERT_TRUE(failed);
    EXPECT_TRUE(failed->cancelled);
    EXPECT_GT(fetched.record.status, 0) << "the answer had come";
}

TEST_F(FeedClientTest, ABodyThatDidNotParseIsAskedForAgainInFull) {
    const auto tagged = [](std::string body) {
        return Response{.headers = {{"ETag", "\"1\""}}, .body = std::move(body)};
    };
    serve("a.example", "/feed", tagged(feedOf(1)));
    fetch("https://a.example/feed");
    fetch("https://a.example/feed");
    auto requests = harness_.script.requests("a.example", "/feed");
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[1].header("if-none-match"), "\"1\"");

    serve("a.example", "/feed", tagged("<html>"));
    fetch("https://a.example/feed");
    fetch("https://a.example/feed");
    requests = harness_.script.requests("a.example", "/feed");
    EXPECT_FALSE(requests.back().header("if-none-match"));
}

TEST_F(FeedClientTest, APassBringsEverySourceOnceAndOneFailureHoldsNobodyUp) {
    std::vector<NewsSource> sources;
    for (int i = 0; i < 60; ++i) {
        const auto host = "h" + std::to_string(i % 20) + ".example";
        const auto target = "/" + std::to_string(i);
        if (i != 7) serve(host, target, {.body = feedOf(2, host)});
        sources.push_back(at("https://" + host + target));
    }
    std::map<std::string, std::string> arrived;
    asio::co_spawn(io_,
                   client_.fetchAll(sources,
                                    [&](const NewsSource& source, SourceFetch fetch) {
                                        EXPECT_TRUE(arrived.emplace(source.id, text(fetch)).second)
                                            << source.id;
                                    }),
                   asio::use_future);
    run();
    ASSERT_EQ(arrived.size(), 60u);
    EXPECT_EQ(arrived["https://h7.example/7"], "The server answered 404.");
    EXPECT_EQ(arrived["https://h8.example/8"], "2 stories of Sample feed");
}

TEST_F(FeedClientTest, ACancelledPassEndsAtOnceAndAFailingReceiverEndsItToo) {
    std::vector<NewsSource> sources;
    for (int i = 0; i < 40; ++i) {
        const auto host = "silent" + std::to_string(i) + ".example";
        serve(host, "/", {.delivery = {.neverAnswers = true}});
        sources.push_back(at("https://" + host + "/"));
    }
    asio::cancellation_signal cancel;
    const auto begin = std::chrono::steady_clock::now();
    asio::co_spawn(io_, client_.fetchAll(sources, [](const NewsSource&, SourceFetch) {}),
                   asio::bind_cancellation_slot(cancel.slot(), [](std::exception_ptr) {}));
    asio::steady_timer timer(io_, std::chrono::milliseconds(100));
    timer.async_wait([&](auto) { cancel.emit(asio::cancellation_type::terminal); });
    run();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));

    serve("good.example", "/", {.body = feedOf(1)});
    sources.push_back(at("https://good.example/"));
    std::swap(sources.front(), sources.back());
    auto failed = asio::co_spawn(
        io_,
        client_.fetchAll(sources,
                         [](const NewsSource&, SourceFetch) { throw std::runtime_error("full"); }),
        asio::use_future);
    run();
    EXPECT_THROW(failed.get(), std::runtime_error);
}

}  // namespace
}  // namespace kit
