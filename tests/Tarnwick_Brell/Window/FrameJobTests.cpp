#include <gtest/gtest.h>

#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// What surrounds the pages: undo, the sidebar, menus, dropping.
class FrameJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        harness_.tell(
            harness_.story("tide", 60, "Lantern maker opens a harbour office in Larwick"));
        harness_.tell(harness_.story("post", 74, "Lantern maker opens harbour office in Larwick"));
        harness_.tell(harness_.story("tide", 90, "Kelp prices fall for a third week"));
        openWindow();
        model_->open(QStringLiteral("wire:all"));
        ASSERT_TRUE(until([&] { return model_->storyList()->list()->count() == 3; }));
    }
};

TEST_F(FrameJobTest, TheNoticeUndoesItsOwnStepAndTheKeysUndoAndRedo) {
    press(Qt::Key_J);
    const auto id = model_->selectedStory()->id();
    press(Qt::Key_S);
    EXPECT_EQ(model_->actions()->title(DeskAction::Undo), "Undo Save story");
    int panels = 1;
    undo_.push({.text = "Remove panel", .undo = [&] { ++panels; }, .redo = [&] { --panels; }});
    EXPECT_TRUE(until([&] { return !named("Undo"); })) << "the notice about the story has gone";
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(panels, 2);
    EXPECT_TRUE(harness_.news->isSaved(id));
    click("Redo");
    EXPECT_EQ(panels, 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(harness_.news->isSaved(id));
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(harness_.news->isSaved(id));
}

TEST_F(FrameJobTest, ClustersAreShownAndWalkedWithTheKeysAndRememberedForTheList) {
    ASSERT_TRUE(
        until([&] { return harness_.news->clusters() && !harness_.news->clusters()->empty(); }));
    click("Clusters");
    const auto& clusters = *model_->clusters();
    ASSERT_TRUE(until([&] { return clusters.count() == 2; }));
    press(Qt::Key_J);
    press(Qt::Key_J);
    press(Qt::Key_Right);
    EXPECT_EQ(clusters.count(), 4);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(model_->selectedStory()->reader()->source(), "post");
    press(Qt::Key_Left);
    EXPECT_EQ(clusters.currentRow(), 1);
    model_->open(QStringLiteral("wire:unread"));
    EXPECT_FALSE(clusters.isShown());
    model_->open(QStringLiteral("wire:all"));
    EXPECT_TRUE(clusters.isShown());
}

TEST_F(FrameJobTest, TheSidebarIsResizedAndItsMenuOpensWithThePointer) {
    const int width = model_->state()->sidebarWidth();
    QTest::mousePress(&window(), Qt::LeftButton, {}, QPoint(width, 400));
    for (const int by : {10, 25, 40}) QTest::mouseMove(&window(), QPoint(width + by, 400));
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, QPoint(width + 40, 400));
    EXPECT_NEAR(model_->state()->sidebarWidth(), width + 40, 2);

    click("Software", Qt::RightButton);
    click("Open");
    EXPECT_EQ(model_->placeKey(), "tracker:software");
}

TEST_F(FrameJobTest, WhatIsDroppedIsImportedOrRefusedWithAReason) {
    model_->drop({QUrl("mailto:desk@tide.example")}, {});
    ASSERT_EQ(noticed_.size(), 1);
    EXPECT_TRUE(noticed_[0].contains("newsroom's file"));
    model_->drop({QUrl("https://tide.example/feed")}, {});
    EXPECT_TRUE(model_->sheet() || noticed_.size() == 2) << "a sheet, or a sentence";
}

}  // namespace
}  // namespace app
