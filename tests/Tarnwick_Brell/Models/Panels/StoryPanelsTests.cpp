#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <tuple>

#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Models/Panels/QueryPanelModel.h"
#include "tests/support/models/TestPanels.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using namespace test;
using kit::PanelKind;
using kit::Sourcing;
using ::test::until;

constexpr const char* kHeadset = "Apple's Quillmark headset appears in blue factory photos";

class StoryPanelsTest : public ::testing::Test {
protected:
    /// Three outlets tell of the headset, one of something else.
    void tellStories() {
        harness_.tell("Harbour", "10:00", kHeadset, Sourcing::report);
        harness_.tell("Lantern", "10:14", kHeadset);
        harness_.tell("Meridian", "10:30", kHeadset);
        harness_.tell("Lantern", "11:00", "A calm week for keyboards");
    }

    void expectTexts(const QStringList& texts, const QStringList& expected) {
        EXPECT_EQ(texts.join('|').toStdString(), expected.join('|').toStdString());
    }

    TestPanels harness_;
};

TEST_F(StoryPanelsTest, ABriefTellsNewsAndTrackerChangesSinceTheLastLookAndOpensThem) {
    harness_.tell("Harbour", "08:00", "Told before the last look");
    tellStories();
    harness_.lookedLastAt("09:12");
    const auto started = std::chrono::floor<std::chrono::milliseconds>(harness_.at("11:05"))
                             .time_since_epoch()
                             .count();
    harness_.serveTrackers(
        R"({"services":[
            {"serviceName":"Tune Box","events":[{"eventStatus":"ongoing","epochStartDate":)" +
            std::to_string(started) + R"(}]},
            {"serviceName":"Old Trouble","events":[{"eventStatus":"ongoing","epochStartDate":1000}]}]})",
        R"({"systems":{"iOS":{
            "public":{"version":"26.5","stage":"","build":"23F77","title":"iOS 26.5",
                      "published":"2026-11-01T10:00:00Z","url":"https://a.example/1"},
            "beta":{"version":"26.6","stage":"beta 1","build":"23G5028e","title":"iOS 26.6 beta 1",
                    "published":"2026-11-20T11:02:00Z","url":"https://a.example/2"}}}})");
    harness_.open();
    harness_.trackers->refreshAll();
    ASSERT_TRUE(until([&] {
        return harness_.trackers->consumerStatus().value && harness_.trackers->releases().value;
    }));

    const auto brief = harness_.panel(PanelKind::brief);
    EXPECT_EQ(brief->state(), PanelModel::Ready);
    EXPECT_EQ(brief->fact(), "Since 09:12");
    expectTexts(column(*brief, "sentence"),
                {kHeadset, "Tune Box is having a problem since 11:05.", "A calm week for keyboards",
                 "iOS 26.6 beta 1 is out, build 23G5028e."});
    expectTexts(column(*brief, "sources"),
                {"Harbour 10:00 · Lantern 10:14 · Meridian 10:30", "System Status 12:00",
                 "Lantern 11:00", "Apple Developer Releases 11:02"});

    QStringList opened;
    QObject::connect(brief.get(), &PanelModel::storyWanted, [&](auto id) { opened << id; });
    QObject::connect(brief.get(), &PanelModel::linkWanted, [&](auto link) { opened << link; });
    auto& rows = dynamic_cast<QueryPanelModel&>(*brief);
    for (const int row : {0, 3, 99}) rows.open(row);
    ASSERT_EQ(opened.size(), 2);
    EXPECT_NE(harness_.news->stories().find(opened[0].toStdString()), nullptr);
    EXPECT_EQ(opened[1], "https://a.example/2");

    const auto narrow = harness_.panel(PanelKind::brief, {.anyTerms = {"headset"}});
    expectTexts(column(*narrow, "sentence"), {kHeadset});
}

TEST_F(StoryPanelsTest, PanelsTellWhoCoversTheNewsAndWhoWasFirst) {
    tellStories();
    harness_.open();
    const auto top = harness_.panel(PanelKind::topStories);
    EXPECT_EQ(top->fact(), "Last 48 hours");
    expectTexts(column(*top, "outletCount"), {"3"});
    expectTexts(column(*top, "lead"), {"14 min before Lantern"});
    expectTexts(column(*top, "sourcingLabel"), {"Report"});
    expectTexts(column(*harness_.panel(PanelKind::scoops), "outlet"), {"Harbour"});
    expectTexts(column(*harness_.panel(PanelKind::claims), "standing"), {"Nothing from Apple"});
    const auto coverage = harness_.panel(PanelKind::coverage);
    expectTexts(column(*coverage, "outlet"), {"Lantern", "Harbour", "Meridian"});
    expectTexts(column(*coverage, "fraction"), {"1", "0.5", "0.5"});
    expectTexts(column(*coverage, "firsts"), {"", "first 1×", ""});
}

TEST_F(StoryPanelsTest, ClaimsMeetTheirAnswerAsFarBackAsThePanelSays) {
    const auto tellDaysAgo = [&](int days, const std::string& outlet, Sourcing sourcing) {
        const auto link = "https://" + outlet + ".example/old";
        harness_.tell({.id = kit::storyID(link),
                       .link = link,
                       .title = kHeadset,
                       .publishedAt = harness_.at("10:00") - std::chrono::days(days),
                       .sourceID = outlet,
                       .sourceName = outlet,
                       .sourcing = sourcing});
    };
    tellDaysAgo(10, "Harbour", Sourcing::rumor);
    tellDaysAgo(9, "Lantern", Sourcing::confirmed);
    harness_.open();
    const auto claims = harness_.panel(PanelKind::claims);
    EXPECT_EQ(claims->fact(), "Last 14 days");
    expectTexts(column(*claims, "stateLabel"), {"Confirmed"});
    expectTexts(column(*harness_.panel(PanelKind::coverage), "firsts"), {"first 1×", ""});
}

TEST_F(StoryPanelsTest, APanelWithoutContentSaysWhetherNothingMatchesOrNothingCameOfIt) {
    harness_.tell("Lantern", "11:00", "A calm week for keyboards");
    harness_.open();
    const std::vector<std::tuple<PanelKind, std::string, QString>> cases{
        {PanelKind::topStories, "nonesuch", "No story in the last 48 hours mentions “nonesuch”."},
        {PanelKind::coverage, "nonesuch", "No story in the last 30 days mentions “nonesuch”."},
        {PanelKind::stream, "nonesuch", "No story mentions “nonesuch”."},
        {PanelKind::apple, "keyboards", "No post of Apple's mentions “keyboards”."},
        {PanelKind::topStories, "keyboards", "No news that several outlets cover."},
        {PanelKind::claims, "keyboards", "Nothing is reported or rumored."},
        {PanelKind::scoops, "keyboards", "No news that one outlet had before others."},
        {PanelKind::brief, "nonesuch", "Nothing new in the last 24 hours."}};
    for (const auto& [kind, term, message] : cases) {
        const auto panel = harness_.panel(kind, {.anyTerms = {term}});
        EXPECT_EQ(panel->state(), PanelModel::Empty) << message.toStdString();
        EXPECT_EQ(panel->message().toStdString(), message.toStdString());
    }
}

TEST_F(StoryPanelsTest, APanelFollowsMarksAndArrivals) {
    tellStories();
    harness_.open();
    const auto top = harness_.panel(PanelKind::topStories);
    expectTexts(column(*top, "isRead"), {"false"});
    std::vector<std::int64_t> all;
    for (std::size_t i = 0; i < harness_.news->stories().size(); ++i) {
        all.push_back(harness_.news->stories()[i].number());
    }
    harness_.news->markAllRead(all);
    EXPECT_TRUE(until([&] { return column(*top, "isRead") == QStringList("true"); }));
    harness_.tell("Nimbus", "11:30", kHeadset);
    EXPECT_TRUE(until([&] { return column(*top, "outletCount") == QStringList("4"); }));
}

TEST_F(StoryPanelsTest, GatheringGivesWayToTheEventLoopAndStopsWhereTheWireIsTooFull) {
    for (int i = 10; i < 60; ++i) {
        harness_.tell("Harbour", "09:" + std::to_string(i), "Story " + std::to_string(i));
        harness_.tell("Lantern", "10:" + std::to_string(i), "Story " + std::to_string(i));
    }
    harness_.open();
    for (const auto& [most, found] : {std::pair{1000u, 100u}, std::pair{64u, 64u}}) {
        PanelStoryCollector collector(*harness_.news, harness_.desk.clock(),
                                      {.debounce = 0ms, .slice = 0ms, .mostStories = most});
        std::optional<std::size_t> stories;
        kit::Instant from;
        collector.add({.earliest = [&] { return harness_.at("00:00"); },
                       .build =
                           [&](const QueryResult& result) {
                               return [&, count = result.news.stories.size(), start = result.from] {
                                   stories = count;
                                   from = start;
                               };
                           }});
        int turns = 0;
        ASSERT_TRUE(until([&] {
            QCoreApplication::processEvents();
            ++turns;
            return stories.has_value();
        }));
        EXPECT_EQ(*stories, found);
        EXPECT_GT(turns, 2);
        EXPECT_EQ(from, most > 100 ? harness_.at("00:00") : harness_.at("09:45"));
    }
}

TEST_F(StoryPanelsTest, APanelThatGoesWhileItsContentIsMadeIsLeftAlone) {
    tellStories();
    harness_.open();
    auto collector = std::make_shared<PanelStoryCollector>(
        *harness_.news, harness_.desk.clock(), PanelStoryCollector::Pace{.debounce = 0ms});
    std::atomic<bool> isMade = false, mayGoOn = false;
    bool isTaken = false;
    const auto id = collector->add({.earliest = [&] { return harness_.at("00:00"); },
                                    .build =
                                        [&](const QueryResult&) {
                                            isMade = true;
                                            while (!mayGoOn) std::this_thread::yield();
                                            return [&] { isTaken = true; };
                                        }});
    // The worker waits until the subscription has been removed.
    while (!isMade) QCoreApplication::processEvents();
    collector->remove(id);
    mayGoOn = true;
    ::test::runFor(50ms);
    EXPECT_FALSE(isTaken);
}

}  // namespace
}  // namespace app
