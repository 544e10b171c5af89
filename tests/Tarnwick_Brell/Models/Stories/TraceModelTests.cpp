#include <gtest/gtest.h>

#include "NewsroomKit/Archive/ArchiveAddresses.h"
#include "Tarnwick_Brell/Models/Stories/StoryActions.h"
#include "tests/support/models/TestStories.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

constexpr const char* kHost = "desk.example";

class Trace : public testing::Test {
protected:
    Trace() {
        harness_.open();
        harness_.come({harness_.story("lantern", 600, "Orchard opens"),
                       harness_.story("tide", 540, "An orchard is planned")});
        const auto clock = harness_.desk.clock();
        stories_ =
            std::make_unique<StoryListController>(*harness_.news, *harness_.newsrooms, clock);
        selected_ =
            std::make_unique<SelectedStory>(*harness_.news, *stories_, harness_.defaults, clock);
        actions_ =
            std::make_unique<StoryActions>(*harness_.news, undo_, *stories_->list(), *selected_);
        stories_->open(Destination{Destination::Kind::all, {}});
    }

    static std::string target(const std::string& story) {
        return kit::ArchiveAddresses{"/wp-json/tb-archive/v1/"}.trace(story);
    }
    void serve(const std::string& story, std::vector<pressroom::Response> answers) {
        harness_.desk.http.script.on(kHost, target(story), std::move(answers));
    }
    std::size_t requests(const std::string& story) {
        return harness_.desk.http.script.requests(kHost, target(story)).size();
    }
    void choose(const std::string& title) {
        selected_->open(QString::fromStdString(harness_.idOf(title)));
    }
    TraceModel& trace() { return *selected_->reader()->trace(); }
    bool becomes(TraceModel::State state) {
        return until([&] { return trace().state() == state; });
    }
    std::string texts(const char* role) {
        return column(*trace().rows(), role).join(u'|').toStdString();
    }

    const std::string lantern_ = "https://lantern.example/600";
    const std::string tide_ = "https://tide.example/540";
    TestStories harness_;
    std::unique_ptr<StoryListController> stories_;
    std::unique_ptr<SelectedStory> selected_;
    UndoStack undo_;
    std::unique_ptr<StoryActions> actions_;
};

std::string answer(const std::string& nodes) { return R"({"url":"","nodes":[)" + nodes + "]}"; }

std::string node(int depth, const std::string& rest) {
    return R"({"kind":"story","depth":)" + std::to_string(depth) + "," + rest + "}";
}

TEST_F(Trace, ShowsWhoHadTheStoryFromWhomAndWhatCanBeOpened) {
    serve(lantern_,
          {{.body = answer(
                node(0, R"("url":"javascript:harm","publisher":"Har\u202ebour","platform":"Gull",)"
                        R"("title":"First\nword","precision":"minute",)"
                        R"("published_at":"2026-11-20T08:05:00Z")") +
                "," +
                node(7, R"("url":"https://tide.example/540/?utm_source=x","publisher":"Tide",)"
                        R"("title":"Planned","precision":"day","relation":"linked",)"
                        R"("published_at":"2026-11-19T00:00:00Z")") +
                "," +
                node(3,
                     R"("url":"https://lantern.example/600","publisher":"Lantern","title":"Opens",)"
                     R"("precision":"unknown","published_at":"2026-11-19T00:00:00Z",)"
                     R"("relation":"named","note":"as the Harbour wrote")") +
                "," + node(4, R"("url":"https://mole.example/a","precision":"unknown")"))}});
    choose("Orchard opens");
    qputenv("TZ", "America/Los_Angeles");
    tzset();
    actions_->traceStory();
    EXPECT_EQ(trace().message(), "Looking for every outlet that ran it…");
    ASSERT_TRUE(becomes(TraceModel::Ready));
    EXPECT_EQ(texts("when"), "00:05|19 Nov|Time unknown|Time unknown");
    qputenv("TZ", "UTC");
    tzset();
    EXPECT_EQ(texts("publisher"), "Harbour on Gull|Tide|Lantern|An unknown outlet");
    EXPECT_EQ(texts("title"), "First word|Planned|Opens|https://mole.example/a");
    EXPECT_EQ(texts("depth"), "0|1|1|2");
    EXPECT_EQ(texts("reference"), "|linked as “Harbour on Gull”|named as “as the Harbour wrote”|");
    EXPECT_EQ(texts("link"),
              "|https://tide.example/540/?utm_source=x|https://lantern.example/600|"
              "https://mole.example/a");
    EXPECT_EQ(texts("storyID"), "|" + harness_.idOf("An orchard is planned") + "|" +
                                    harness_.idOf("Orchard opens") + "|");
    EXPECT_EQ(texts("isThis"), "false|false|true|false");
    EXPECT_EQ(column(*trace().rows(), "spokenText")[2],
              "Lantern, Opens, Time unknown, after Harbour on Gull, "
              "named as “as the Harbour wrote”, the story in the reader");
}

TEST_F(Trace, DrawsWhatIsVeryDeepNoDeeperThanEight) {
    std::string nodes;
    for (int depth = 0; depth < 12; ++depth) {
        nodes += (depth ? "," : "") + node(depth, R"("url":"","precision":"unknown")");
    }
    serve(lantern_, {{.body = answer(nodes)}});
    choose("Orchard opens");
    actions_->traceStory();
    ASSERT_TRUE(becomes(TraceModel::Ready));
    EXPECT_EQ(texts("depth"), "0|1|2|3|4|5|6|7|8|8|8|8");
}

TEST_F(Trace, AFailureIsToldBesideWhatIsThereAndCanBeTriedAgain) {
    const auto good =
        answer(node(0, R"("url":"","publisher":"Tide","title":"A","precision":"unknown")"));
    serve(lantern_,
          {{.status = 404}, {.body = good}, {.body = R"({"nodes":[]})"}, {.body = answer("")}});
    choose("Orchard opens");
    actions_->traceStory();
    ASSERT_TRUE(becomes(TraceModel::Failed));
    EXPECT_EQ(trace().message(), "The server answered 404.");
    EXPECT_EQ(selected_->reader()->title(), "Orchard opens");
    trace().retry();
    ASSERT_TRUE(becomes(TraceModel::Ready));
    EXPECT_EQ(texts("title"), "A");
    actions_->traceStory();
    ASSERT_TRUE(becomes(TraceModel::Failed));
    EXPECT_TRUE(trace().message().startsWith("The server's answer can't be read ("))
        << trace().message().toStdString();
    EXPECT_EQ(texts("title"), "A") << "the last good answer stays";
    trace().retry();
    ASSERT_TRUE(becomes(TraceModel::Empty));
    EXPECT_EQ(trace().message(), "No origin was found.");
    EXPECT_EQ(texts("title"), "");
}

TEST_F(Trace, AnotherStoryCancelsTheSearchAndItsAnswerIsNeverShown) {
    serve(lantern_, {{.delivery = {.neverAnswers = true}},
                     {.body = answer(node(0, R"("url":"","title":"Late","precision":"unknown")")),
                      .delivery = {.delay = std::chrono::milliseconds(150)}}});
    serve(tide_, {{.body = answer(node(0, R"("url":"","title":"Here","precision":"unknown")"))}});
    for (std::size_t asked = 1; asked <= 2; ++asked) {
        choose("Orchard opens");
        actions_->traceStory();
        actions_->traceStory();
        ASSERT_TRUE(until([&] { return requests(lantern_) == asked; }));
        choose("An orchard is planned");
        EXPECT_EQ(trace().state(), TraceModel::Idle);
        actions_->traceStory();
        ASSERT_TRUE(becomes(TraceModel::Ready));
        ::test::runFor(std::chrono::milliseconds(250));
        EXPECT_EQ(texts("title"), "Here");
        EXPECT_EQ(requests(lantern_), asked) << "asked again while it was running";
    }
    choose("Orchard opens");
    EXPECT_EQ(trace().state(), TraceModel::Idle);
    EXPECT_EQ(texts("title"), "");
}

}  // namespace
}  // namespace app
