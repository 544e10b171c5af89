#include <gtest/gtest.h>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/use_future.hpp>

#include "Tarnwick_Brell/Desk/SourceAdder.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/TestServer.h"

namespace app {
namespace {

namespace asio = boost::asio;

std::string feed(const std::string& title, int items) {
    std::string text = "<rss><channel><title>" + title + "</title>";
    for (int i = 0; i < items; ++i) {
        const auto number = std::to_string(i);
        text += "<item><title>Story " + number + "</title><link>https://a.example/" + number +
                "</link><pubDate>Mon, 02 Nov 2026 1" + number + ":00:00 GMT</pubDate></item>";
    }
    return text + "</channel></rss>";
}

std::string page(const std::string& title, const std::vector<std::string>& feeds) {
    std::string text = "<html><head><title>" + title + "</title>";
    for (const auto& address : feeds) {
        text += "<link rel='alternate' type='application/rss+xml' href='" + address + "'>";
    }
    return text + "</head></html>";
}

std::string titlesOf(const AddressCheck& check) {
    std::string titles;
    for (const auto& story : check.first) titles += story.title + ", ";
    return titles;
}

class AddingTest : public ::testing::Test {
protected:
    void serve(const std::string& host, const std::string& target, std::string body) {
        harness_.script.on(host, target,
                           {{.headers = {{"ETag", "\"1\""}}, .body = std::move(body)}});
    }

    template <class T>
    T await(asio::awaitable<T> work) {
        auto result = asio::co_spawn(io_, std::move(work), asio::use_future);
        io_.restart();
        io_.run();
        return result.get();
    }

    /// "name at feed of site", or the error's text.
    std::string add(const std::string& typed) {
        const auto added = await(adding_.add(typed));
        if (const auto* error = std::get_if<AddSourceError>(&added)) return error->description();
        const auto& source = std::get<kit::NewsSource>(added);
        return source.name + " at " + source.feedURL + " of " + source.siteURL;
    }

    kit::Instant now_ = kit::parseISO8601("2026-11-20T12:00:00Z").value();
    kit::test::TestServer harness_;
    asio::io_context io_;
    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
    SourceRegistry registry_{store_.sources()};
    FetchStack engine_{{.connectTo = "127.0.0.1:" + std::to_string(harness_.server.port()),
                        .caFile = harness_.authorityFile()},
                       kit::Conditional::yes,
                       [this] { return now_; }};
    SourceAdder adding_{store_, registry_, engine_, [this] { return now_; },
                        std::chrono::hours(24 * 365)};
};

TEST_F(AddingTest, WhatIsTypedLeadsToASourceOrToTheReasonWhyNot) {
    const std::string longTitle =
        "A title that tells everything about everybody, and then it goes on to tell more";
    serve("plain.example", "/feed", feed("Plain &amp;amp; &lt;i>simple&lt;/i>", 2));
    serve("site.example", "/", page("The Site - Home", {"/comments", "/posts"}));
    serve("site.example", "/comments", feed("Comments", 0));
    serve("site.example", "/posts", feed("", 1));
    serve("bare.example", "/", page("", {"https://feeds.bare.example/rss"}));
    serve("feeds.bare.example", "/rss", feed("", 1));
    serve("long.example", "/rss", feed(longTitle, 1));
    serve("social.example", "/@mika.rss", feed("Mika", 1));
    serve("empty.example", "/", feed("Empty", 0));
    serve("hollow.example", "/", page("Hollow", {"/rss", "/gone"}));
    serve("hollow.example", "/rss", feed("Hollow", 0));
    serve("page.example", "/", page("Page", {}));
    serve("old.example", "/", page("Old", {"http://old.example/rss"}));
    serve("mirror.example", "/", page("Mirror", {"https://plain.example/feed?utm_source=m"}));
    serve("plain.example", "/feed?utm_source=m", feed("Plain", 2));
    const struct {
        const char* typed;
        std::string outcome;
    } cases[] = {
        {" plain.example/feed ",
         "Plain & simple at https://plain.example/feed of https://plain.example/"},
        {"https://PLAIN.example/feed/#top", "Plain & simple is already one of your sources."},
        {"mirror.example", "Plain & simple is already one of your sources."},
        {"site.example", "The Site at https://site.example/posts of https://site.example/"},
        {"bare.example",
         "feeds.bare.example at https://feeds.bare.example/rss of "
         "https://bare.example/"},
        {"long.example/rss",
         "A title that tells everything about "
         "everybody, and then it… at https://long.example/rss of https://long.example/"},
        {"@mika@Social.example",
         "Mika at https://social.example/@mika.rss of https://social.example/"},
        {"empty.example", "That feed has no stories in it."},
        {"hollow.example", "That feed has no stories in it."},
        {"page.example", "The address didn't return a feed."},
        {"page.example/none", "The server answered 404."},
        {"http://page.example/", "The address isn't secure (https)."},
        {"old.example",
         "The page names the feed http://old.example/rss, which can't be used. The address isn't "
         "secure (https)."},
        {"", "That doesn't look like a web address or a handle."},
        {"@mika", "That doesn't look like a web address or a handle."},
        {"two words", "That doesn't look like a web address or a handle."},
    };
    for (const auto& c : cases) EXPECT_EQ(add(c.typed), c.outcome) << c.typed;
    EXPECT_EQ(SourceRegistry(store_.sources()).sources(), registry_.sources())
        << "all of it is kept";
}

TEST_F(AddingTest, ACheckTellsWhatWouldComeAndChangesNothing) {
    serve("site.example", "/", page("Site", {"/feed"}));
    serve("site.example", "/feed", feed("The feed", 7));
    const auto before = registry_.sources();
    const auto checked = await(adding_.check("site.example"));
    const auto& found = std::get<AddressCheck>(checked);
    EXPECT_EQ(found.name, "The feed");
    EXPECT_EQ(found.feedURL, "https://site.example/feed");
    EXPECT_EQ(found.storyCount, 7u);
    EXPECT_EQ(found.newestStory, kit::parseISO8601("2026-11-02T16:00:00Z"));
    EXPECT_EQ(titlesOf(found), "Story 0, Story 1, Story 2, Story 3, Story 4, ");
    EXPECT_EQ(registry_.sources(), before);
    const auto known = await(adding_.check(registry_.find("six-colors")->feedURL));
    EXPECT_EQ(std::get<AddSourceError>(known),
              (AddSourceError{AddSourceError::Kind::alreadyAdded, "Six Colors"}));
}

TEST_F(AddingTest, EveryAddressIsFollowedWithWhatItGave) {
    serve("site.example", "/", page("Site", {"/none", "/empty", "/feed", "/comments"}));
    serve("site.example", "/empty", feed("Empty", 0));
    serve("site.example", "/feed", feed("The feed", 7));
    std::string followed;
    const auto watch = [&](const kit::FetchAttempt& attempt) {
        if (attempt.outcome == kit::FetchAttempt::Outcome::underWay) return;
        const char* words[] = {"", "page", "feed", "failed", "untried"};
        followed += words[static_cast<int>(attempt.outcome)] + (" " + attempt.address.substr(20)) +
                    " " + std::to_string(attempt.count) + attempt.reason + "\n";
    };
    await(adding_.check("site.example", watch));
    EXPECT_EQ(followed,
              "page  4\nfailed /none 0The server answered 404.\nfeed /empty 0\nfeed /feed 7\n"
              "untried /comments 0\n");
}

TEST_F(AddingTest, AFeedThatWasRemovedIsAskedInFullAgain) {
    serve("a.example", "/feed", feed("A", 1));
    add("a.example/feed");
    registry_.remove({registry_.findByFeed("https://a.example/feed")->id}, now_);
    EXPECT_EQ(add("a.example/feed").substr(0, 4), "A at");
    const auto requests = harness_.script.requests("a.example", "/feed");
    EXPECT_FALSE(requests.back().header("if-none-match"));
}

TEST_F(AddingTest, AHostThatWantsToBeLeftAloneIsAskedWhenTheUserAddsAFeedOfIt) {
    serve("busy.example", "/feed", feed("Busy", 1));
    store_.hostPauses().set("busy.example", now_ + std::chrono::seconds(61));
    EXPECT_EQ(add("busy.example/feed").substr(0, 7), "Busy at");
}

TEST_F(AddingTest, ACheckPromisesNoMoreThanTheDeskWillKeep) {
    const auto item = [](const char* title, const char* link, const char* day) {
        return "<item><title>" + std::string(title) + "</title><link>https://show.example/" + link +
               "</link><pubDate>" + day + " 10:00:00 GMT</pubDate></item>";
    };
    const auto today = "Mon, 02 Nov 2026", longAgo = "Mon, 02 Nov 2015";
    serve("show.example", "/feed",
          {.body = "<rss><channel><title>Show</title>" + item("One", "show", today) +
                   item("Two", "show", today) + item("Three", "other", today) +
                   item("Four", "four", longAgo) + "</channel></rss>"});
    const auto found = std::get<AddressCheck>(await(adding_.check("show.example/feed")));
    EXPECT_EQ(found.storyCount, 2u);
    EXPECT_EQ(found.collapsed, 1u);
    EXPECT_EQ(found.tooOld, 1u);
    EXPECT_EQ(titlesOf(found), "One, Three, ");
}

TEST_F(AddingTest, WhatAnotherProgramAddedMeanwhileIsNotAddedTwice) {
    serve("a.example", "/feed", feed("A", 1));
    SourceRegistry elsewhere(store_.sources());
    elsewhere.add("Theirs", "https://a.example/feed", "");
    EXPECT_EQ(add("a.example/feed"), "Theirs is already one of your sources.");
    EXPECT_EQ(std::get<AddSourceError>(adding_.addWithoutFetching("a.example/feed")),
              (AddSourceError{AddSourceError::Kind::alreadyAdded, "Theirs"}));
    EXPECT_EQ(std::get<kit::NewsSource>(adding_.addWithoutFetching("b.example/x%20y")).name,
              "b.example/x y");
}

TEST_F(AddingTest, AnAddressThatCouldNeverBeFetchedIsNotAddedUncheckedEither) {
    for (const char* typed : {"http://a.example/feed", "ftp://a.example/feed"}) {
        EXPECT_EQ(std::get<AddSourceError>(adding_.addWithoutFetching(typed)).description(),
                  "The address isn't secure (https).");
    }
}

}  // namespace
}  // namespace app
