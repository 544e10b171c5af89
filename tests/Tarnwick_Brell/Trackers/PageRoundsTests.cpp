#include <gtest/gtest.h>

#include <chrono>
#include <exception>
#include <string>
#include <vector>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>

#include "NewsroomKit/Pages/PageReader.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/PageRounds.h"
#include "tests/support/TestServer.h"

namespace app {
namespace {

using kit::Instant;
using pressroom::Response;
using std::chrono::hours;
using std::chrono::minutes;
using LookKind = kit::PageOutcome::Kind;

constexpr const char* kPageHost = "www.apple.com";
constexpr const char* kPagePath = "/legal/privacy/";

std::string pageDocument(const std::string& text, const std::string& title = "Privacy") {
    std::string body = "<html lang=en><title>" + title + "</title><main><h1>Privacy</h1>";
    for (int line = 0; line < 40; ++line)
        body += "<p>Rule " + std::to_string(line) + " holds for everybody who grows pears.</p>";
    return body + "<p>" + text + "</p></main></html>";
}

Response pageAnswer(const std::string& text, const std::string& tag = "") {
    Response answer{.headers = {{"Content-Type", "text/html; charset=utf-8"}},
                    .body = pageDocument(text)};
    if (!tag.empty()) answer.headers.emplace_back("ETag", tag);
    return answer;
}

class PageRoundsTest : public ::testing::Test {
protected:
    /// Looks at the page after that time, of which the server answers so.
    kit::PageOutcome look(std::chrono::minutes later, Response answer) {
        now_ += later;
        harness_.script.on(kPageHost, kPagePath, {std::move(answer)});
        PageRounds rounds(fetcher_);  // a new one has no host to leave alone
        boost::asio::io_context io;
        std::vector<VisitedPage> visited;
        boost::asio::co_spawn(
            io, rounds.visit(std::vector{page_}),
            [&](const std::exception_ptr& failure, std::vector<VisitedPage> result) {
                if (failure) std::rethrow_exception(failure);
                visited = std::move(result);
            });
        io.run();
        EXPECT_TRUE(visited.at(0).outcome) << visited.at(0).reason;
        return visited.at(0).outcome.value_or(kit::PageOutcome());
    }

    /// Titles of what has been told since the last call, each with a line end.
    std::string told() {
        std::string titles;
        for (const auto& logged : store_.signalLog().after(lastTold_)) {
            titles += logged.signal.title + "\n";
            lastTold_ = logged.number;
        }
        return titles;
    }

    std::string tagAskedFor() {
        const auto requests = harness_.script.requests(kPageHost, kPagePath);
        return std::string(requests.back().header("if-none-match").value_or("none"));
    }

    kit::test::TestServer harness_;
    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
    Instant now_{hours(20'000 * 24)};
    TrackerFetcher fetcher_{store_, harness_.client, [this] { return now_; }};
    kit::FollowedPage page_{.id = "p",
                            .address = std::string("https://") + kPageHost + kPagePath,
                            .name = "Privacy",
                            .added = now_};
    std::int64_t lastTold_ = 0;
};

TEST_F(PageRoundsTest, ATextThatComesBackIsToldOnceItHasStayedForADay) {
    const auto six = pageAnswer("Recordings are kept for six months.");
    const auto two = pageAnswer("Recordings are kept for two months.");
    EXPECT_EQ(look(minutes(0), six).kind, LookKind::baseline);
    EXPECT_EQ(look(minutes(30), two).kind, LookKind::candidate);
    EXPECT_EQ(look(minutes(4), two).kind, LookKind::changed);
    EXPECT_EQ(told(),
              "Privacy: 1 change. Changed in \"Privacy\": \"six\" became \"two\" in \"Recordings "
              "are kept for two months.\"\n");
    // An old copy comes and goes.
    for (int turn = 0; turn < 4; ++turn) {
        EXPECT_EQ(look(hours(6), six).kind, LookKind::doubted);
        EXPECT_EQ(look(hours(2), two).kind, LookKind::unchanged);
    }
    EXPECT_EQ(look(hours(1), six).kind, LookKind::doubted);
    EXPECT_EQ(look(hours(23), six).kind, LookKind::doubted);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(look(hours(2), six).kind, LookKind::returned);
    const auto titles = told();
    EXPECT_TRUE(titles.starts_with("Privacy: went back to the text of 4 October 2024. ")) << titles;
    EXPECT_EQ(look(hours(2), six).kind, LookKind::unchanged);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(store_.pages().revisions(page_.address, 9).size(), 3U) << "none of the flaps";
}

TEST_F(PageRoundsTest, APageIsAskedForUnlessItIsTheSameButForLooksThatConfirm) {
    look(minutes(0), pageAnswer("Six months.", "\"a\""));
    EXPECT_EQ(tagAskedFor(), "none");
    EXPECT_EQ(look(minutes(30), {.status = 304}).kind, LookKind::unchanged);
    EXPECT_EQ(tagAskedFor(), "\"a\"");
    look(minutes(30), pageAnswer("Two months.", "\"b\""));
    EXPECT_EQ(look(minutes(4), pageAnswer("Two months.", "\"b\"")).kind, LookKind::changed);
    EXPECT_EQ(tagAskedFor(), "none");
    look(minutes(30), {.status = 304});
    EXPECT_EQ(tagAskedFor(), "\"b\"");
}

TEST_F(PageRoundsTest, WhatIsNoPageIsToldAsAFailureAfterAnHourAndNeverAsAChange) {
    const auto good = pageAnswer("Recordings are kept for six months.");
    const auto html = [](std::string body, int status = 200) {
        return Response{
            .status = status, .headers = {{"Content-Type", "text/html"}}, .body = std::move(body)};
    };
    const auto typed = [](const std::string& type, std::string body) {
        return Response{.headers = {{"Content-Type", type}}, .body = std::move(body)};
    };
    const std::pair<std::string, Response> cases[] = {
        {"an error", html("<p>Please come back later.</p>", 503)},
        {"a wall",
         html("<title>Just a moment...</title><p>Verify you are human. " + std::string(600, 'x'))},
        {"hardly any text", html("<main><p>Loading</p></main>")},
        {"most of it gone",
         html("<html lang=en><main><p>" + std::string(420, 'y') + "</p></main>")},
        {"another language",
         html("<html lang=fr>" +
              pageDocument("Six mois.").substr(std::string("<html lang=en>").size()))},
        {"a picture", typed("image/png", std::string("\x89PNG\r\n\x1a\n\0\0", 10))},
        {"a document", typed("application/pdf", "%PDF-1.7 " + std::string(900, ' '))},
        {"too large", html(std::string(kit::longestPage + 1, ' '))},
        {"redirects without an end",
         Response{.status = 302, .headers = {{"Location", page_.address}}}},
    };
    look(minutes(0), good);
    for (const auto& [what, answer] : cases) {
        for (int turn = 0; turn < 5; ++turn)
            EXPECT_EQ(look(minutes(30), answer).kind, LookKind::unreadable) << what;
        const auto titles = told();
        EXPECT_TRUE(titles.starts_with("Privacy can't be read: ")) << what << ": " << titles;
        EXPECT_EQ(std::ranges::count(titles, '\n'), 1) << what << " is told once: " << titles;
        EXPECT_EQ(look(minutes(30), good).kind, LookKind::unchanged) << what;
        EXPECT_EQ(told(), "") << what;
    }
    EXPECT_EQ(store_.pages().revisions(page_.address, 9).size(), 1U);
}

TEST_F(PageRoundsTest, HostileTextIsStoredAndToldAsText) {
    look(minutes(0), pageAnswer("Six months."));
    const std::string hostile =
        "<b>Six</b>&#27;[31m&#8238;months&#0;&lt;script&gt;alert(1)&lt;/script&gt; "
        "'); DROP TABLE signals; --" +
        std::string(5'000, 'z');
    look(minutes(30), pageAnswer(hostile));
    EXPECT_EQ(look(minutes(4), pageAnswer(hostile)).kind, LookKind::changed);
    const auto titles = told();
    EXPECT_LT(titles.size(), 800U);
    EXPECT_EQ(titles.find('\x1b'), std::string::npos) << titles;
    EXPECT_EQ(std::ranges::count(titles, '\n'), 1);
}

TEST_F(PageRoundsTest, APartThatDiffersEachTimeIsLearnedAndTheRestStillWatched) {
    int number = 0;
    const auto answer = [&](const std::string& months) {
        auto page = pageAnswer("Tip number " + std::to_string(++number) + " for growers.");
        page.body.insert(page.body.find("<p>Rule 0"), "<p>Kept for " + months + " months.</p>");
        return page;
    };
    look(minutes(0), answer("six"));
    for (int turn = 0; turn < 4; ++turn) look(minutes(4), answer("six"));
    EXPECT_EQ(told(), "");
    look(minutes(30), answer("two"));
    EXPECT_EQ(look(minutes(4), answer("two")).kind, LookKind::changed);
    EXPECT_TRUE(told().starts_with("Privacy: 1 change. "));
}

}  // namespace
}  // namespace app
