#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Models/Pages/CorrectionsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/TimelinePageModel.h"
#include "Tarnwick_Brell/Models/Pages/TopStoriesPageModel.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// A desk on which three outlets tell the same news, driven by keys.
class SubjectJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        const char* news = "Quay Foundry picks Porthaven for its second Apple plant";
        harness_.tell("post", "09:02", news, kit::Sourcing::report);
        harness_.tell("tide", "09:16", news, kit::Sourcing::report);
        harness_.tell("gull", "09:40", news);
        harness_.tell("post", "10:00", "Orchard prices fall");
        openWindow();
        ASSERT_TRUE(until([&] {
            const auto& clusters = harness_.news->clusters();
            return clusters && !clusters->empty();
        }));
    }

    void choose(const char* outlet) {
        type("gw");
        ASSERT_TRUE(until([&] { return model_->storyList()->list()->count() == 4; }));
        for (const auto& cluster : *harness_.news->clusters()) {
            for (const auto& id : cluster.storyIDs) {
                const auto* story = harness_.news->stories().find(id);
                if (story->sourceName() == outlet) model_->openStory(QString::fromStdString(id));
            }
        }
        ASSERT_TRUE(reader().hasStory());
    }
    ReaderModel& reader() { return *model_->selectedStory()->reader(); }
    template <class Page>
    Page& page() {
        return dynamic_cast<Page&>(*model_->page());
    }
    bool isReady() { return model_->page() && model_->page()->state() == PanelModel::Ready; }
};

TEST_F(SubjectJobTest, TopStoriesOpenToTheirTimelinesAndRememberHowTheyAreShown) {
    type("go");
    ASSERT_EQ(model_->placeKey().toStdString(), "wire:top");
    ASSERT_TRUE(until([&] { return isReady(); }));
    auto* top = &page<TopStoriesPageModel>();
    EXPECT_EQ(column(*top->rows(), "outlet"), QStringList({"post", "", "post", "tide", "gull", ""}))
        << "the subject, why it leads, its stories, who was first";
    EXPECT_EQ(column(*top->rows(), "lead")[0], "14 min before tide");
    EXPECT_EQ(column(*top->scoops(), "lead"), QStringList("14 min"));

    ASSERT_TRUE(until([&] { return window().activeFocusItem()->inherits("QQuickListView"); }));
    press(Qt::Key_J);
    press(Qt::Key_Left);
    EXPECT_EQ(top->rows()->rowCount(), 1);
    press(Qt::Key_Right);
    EXPECT_EQ(top->rows()->rowCount(), 6);

    press(Qt::Key_C, Qt::ShiftModifier);
    EXPECT_EQ(column(*top->rows(), "outlet"), QStringList({"gull", "tide", "post"}));
    EXPECT_TRUE(until([&] { return named("outlets") == nullptr; }));
    press(Qt::Key_C, Qt::ShiftModifier);
    EXPECT_TRUE(until([&] { return named("outlets") != nullptr; })) << "rows that stay change too";
    press(Qt::Key_C, Qt::ShiftModifier);
    type("gwgo");
    ASSERT_TRUE(until([&] { return isReady(); }));
    EXPECT_FALSE(page<TopStoriesPageModel>().showsClusters());
    ASSERT_TRUE(until([&] { return window().activeFocusItem()->inherits("QQuickListView"); }));
    press(Qt::Key_J);
    press(Qt::Key_Return);
    EXPECT_EQ(reader().source(), "gull");
}

TEST_F(SubjectJobTest, TheTimelineOfAStorysNewsIsShownAndExportedWithKeys) {
    const QTemporaryDir home;
    const auto before = qgetenv("HOME");
    qputenv("HOME", home.path().toUtf8());
    choose("tide");
    press(Qt::Key_T, Qt::ShiftModifier);
    ASSERT_TRUE(model_->placeKey().startsWith("page:timeline/news/"));
    ASSERT_TRUE(until([&] { return isReady(); }));
    const auto& timeline = page<TimelinePageModel>();
    EXPECT_EQ(column(*const_cast<TimelinePageModel&>(timeline).stages(), "name"),
              QStringList("First report"));
    press(Qt::Key_E, Qt::ShiftModifier);
    ASSERT_FALSE(noticed_.isEmpty());
    EXPECT_TRUE(noticed_.last().startsWith("Saved as ")) << noticed_.last().toStdString();
    EXPECT_TRUE(noticed_.last().endsWith(".md."));
    qputenv("HOME", before);
}

TEST_F(SubjectJobTest, ALabelIsCorrectedUndoneAndTakenBackFromTheList) {
    choose("tide");
    auto& menu = *model_->rowMenu();
    ASSERT_TRUE(menu.show({{"storyID", reader().storyID()}}));
    menu.run(static_cast<int>(
        column(*menu.rows(), "title").indexOf("Correct what the desk made of it")));
    ASSERT_TRUE(until([&] { return model_->sheet() != nullptr; }));
    model_->sheet()->setProperty("note", " Seen in the newsroom ");
    waitForFrame();
    press(Qt::Key_1);
    ASSERT_TRUE(until([&] { return reader().sourcing() == StorySourcing::Confirmed; }));
    EXPECT_EQ(reader().correctedText(), "No label → Confirmed, corrected by you")
        << "the rules read no report in this headline";
    EXPECT_EQ(model_->sheet(), nullptr);
    EXPECT_EQ(harness_.news->corrections().all().at(0).note, "Seen in the newsroom");

    press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return reader().sourcing() == StorySourcing::Report; }));
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(until([&] { return reader().sourcing() == StorySourcing::Confirmed; }));

    type("gc");
    ASSERT_TRUE(until([&] { return isReady(); }));
    EXPECT_EQ(page<CorrectionsPageModel>().rows()->rowCount(), 1);
    ASSERT_TRUE(until([&] { return window().activeFocusItem()->inherits("QQuickListView"); }));
    press(Qt::Key_J);
    press(Qt::Key_Delete);
    EXPECT_TRUE(until([&] { return harness_.news->corrections().all().empty(); }));
}

TEST_F(SubjectJobTest, AStoryIsSplitOffItsNewsAndComesBack) {
    choose("gull");
    const auto stories = [&] { return harness_.news->clusters()->front().storyIDs.size(); };
    press(Qt::Key_N, Qt::ShiftModifier);
    EXPECT_TRUE(until([&] { return stories() == 2; })) << "the other two stay together";
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return stories() == 3; }));
}

TEST_F(SubjectJobTest, WhoElseRanAStoryIsFoundHereWhenTheArchiveFails) {
    choose("gull");
    press(Qt::Key_F);
    auto* coverage = reader().coverage();
    EXPECT_EQ(coverage->title(), "Covered by 3 outlets, 3 of them here");
    EXPECT_EQ(column(*coverage->rows(), "outlet"), QStringList({"post", "tide", "gull"}));
    EXPECT_TRUE(until([&] { return coverage->state() == CoverageModel::WireOnly; }));
    EXPECT_EQ(coverage->rows()->rowCount(), 3);
}

}  // namespace
}  // namespace app
