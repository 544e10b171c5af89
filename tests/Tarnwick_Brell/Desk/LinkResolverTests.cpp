#include <gtest/gtest.h>

#include <chrono>

#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "tests/support/EventLoop.h"
#include "tests/support/app/TestDesk.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using pressroom::Response;
using test::TestDesk;

constexpr auto kOpaque = "/rss/articles/CBMiSkFVX3lxTE1vcGFxdWU";
constexpr auto kOther = "/rss/articles/CBMiSkFVX3lxTE1vdGhlcg";
constexpr auto kBatch = "/_/DotsSplashUi/data/batchexecute";
const std::string kRedirectHost = "news.google.com";

Response signedPage() {
    return {.body = "<div data-n-a-id='CBMi_1' data-n-a-sg='Sig' data-n-a-ts='1700000000'>"};
}

Response batchAnswer(const std::string& address) {
    return {.body = R"()]}'\n\n[["wrb.fr","Fbv4je","[\"garturlres\",\")" + address +
                    R"(\",1]",null]])"};
}

class LinkResolverTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ::test::beApplication(); }

    void SetUp() override {
        std::string items;
        for (const std::string path : {kOpaque, kOther}) {
            items += "<item><title>Headline of " + path + "</title><link>https://" + kRedirectHost +
                     path + "</link></item>";
        }
        harness_.serve("a.example", {{.body = "<rss><channel>" + items + "</channel></rss>"}});
        harness_.serve("b.example",
                       {{.body = std::string("<rss><channel><item><title>HEADLINE of ") + kOther +
                                 "</title><link>https://www.a.example/other</link></item>"
                                 "</channel></rss>"}});
    }

    void open() {
        desk_ = std::make_unique<NewsDesk>(harness_.library(), harness_.network(), defaults_,
                                           harness_.clock());
        desk_->start();
        ASSERT_TRUE(::test::until([&] { return desk_->isLoaded(); }));
        desk_->refreshAll();
        ASSERT_TRUE(::test::until([&] { return story(kOpaque) && story(kOther); }));
    }

    const PackedStory* story(const std::string& path) const {
        const auto link = "https://" + kRedirectHost + path;
        return desk_->stories().find(kit::storyID("a.example|" + link));
    }

    std::string article(const std::string& path) const {
        return story(path)->unpacked().story.articleLink.value_or("");
    }

    void read(const std::string& path) { desk_->setRead({std::string(story(path)->id())}, true); }

    /// Waits until the library's record of requests has that key.
    bool isRecorded(const std::string& key) const {
        return ::test::until([&] {
            LocalStore library(harness_.library(), Database::Access::readOnly);
            const auto history = library.state().text("linkHistory");
            return history && history->find('"' + key + '"') != std::string::npos;
        });
    }

    std::size_t requests(const std::string& path) const {
        return harness_.http.script.requests(kRedirectHost, path).size();
    }

    TestDesk harness_{{"a.example", "b.example"}};
    Defaults defaults_{harness_.folder.path() / "settings.ini"};
    std::unique_ptr<NewsDesk> desk_;
};

TEST_F(LinkResolverTest, AStoryThatIsReadFindsItsArticle) {
    harness_.http.script.on(kRedirectHost, kOpaque, {signedPage()});
    harness_.http.script.on(kRedirectHost, kBatch, {batchAnswer("http://a.example/real/?utm_x=1")});
    open();
    // A story with the same headline on the publisher's site answers without a request.
    read(kOther);
    EXPECT_TRUE(::test::until([&] { return article(kOther) == "https://www.a.example/other"; }));
    EXPECT_EQ(requests(kOther), 0u);

    read(kOpaque);
    EXPECT_TRUE(::test::until([&] { return requests(kOpaque) == 1; }));
    EXPECT_EQ(requests(kBatch), 0u) << "requests are three seconds apart";
    harness_.pass(3s);
    EXPECT_TRUE(::test::until([&] { return article(kOpaque) == "https://a.example/real"; }));
    const auto asked = harness_.http.script.requests(kRedirectHost, kBatch).at(0);
    EXPECT_EQ(asked.method, "POST");
    EXPECT_FALSE(asked.header("if-none-match"));

    desk_.reset();
    LocalStore library(harness_.library(), Database::Access::readOnly);
    const auto id = kit::storyID("a.example|https://" + kRedirectHost + kOpaque);
    EXPECT_EQ(library.stories().findByID(id, 1).at(0).story.articleLink, "https://a.example/real");
}

TEST_F(LinkResolverTest, AConsentPagePausesForAnHour) {
    harness_.http.script.on(kRedirectHost, kOpaque,
                            {{.body = "<form action='https://consent.google.com/save'>"},
                             {.body = "<div data-n-au='https://a.example/late'>"}});
    open();
    read(kOpaque);
    EXPECT_TRUE(isRecorded("pausedAt"));
    harness_.pass(59min);
    read(kOther);  // answered from the library
    EXPECT_TRUE(::test::until([&] { return !article(kOther).empty(); }));
    EXPECT_EQ(requests(kOpaque), 1u);
    desk_.reset();
    harness_.pass(1min);
    open();
    read(kOpaque);
    EXPECT_TRUE(::test::until([&] { return article(kOpaque) == "https://a.example/late"; }));
}

TEST_F(LinkResolverTest, AnAnswerThatIsNoArticleOfThePublisherIsAFailureForADay) {
    harness_.http.script.on(kRedirectHost, kOpaque,
                            {{.body = "<div data-n-au='https://evil.example/x'>"},
                             {.body = "<div data-n-au='https://a.example/right'>"}});
    open();
    read(kOpaque);
    EXPECT_TRUE(isRecorded("story"));
    harness_.pass(23h);
    desk_.reset();
    open();
    read(kOpaque);
    read(kOther);
    EXPECT_TRUE(::test::until([&] { return !article(kOther).empty(); }));
    EXPECT_EQ(requests(kOpaque), 1u);
    harness_.pass(1h);
    read(kOpaque);
    EXPECT_TRUE(::test::until([&] { return article(kOpaque) == "https://a.example/right"; }));
}

}  // namespace
}  // namespace app
