#include <gtest/gtest.h>

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTest>

#include "Tarnwick_Brell/Window/DeskWindow.h"
#include "tests/support/models/TestStories.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// What surrounds the pages: undo, the sidebar, menus, dropping.
class FrameJobTest : public ::testing::Test {
protected:
    void SetUp() override {
        harness_.tell(
            harness_.story("tide", 60, "Lantern maker opens a harbour office in Larwick"));
        harness_.tell(harness_.story("post", 74, "Lantern maker opens harbour office in Larwick"));
        harness_.tell(harness_.story("tide", 90, "Kelp prices fall for a third week"));
        harness_.open();
        model_ = std::make_unique<WindowModel>(DeskStores{.news = *harness_.news,
                                                          .trackers = *harness_.trackers,
                                                          .newsrooms = *harness_.newsrooms,
                                                          .defaults = harness_.defaults,
                                                          .clock = harness_.desk.clock(),
                                                          .undo = undo_});
        QObject::connect(model_.get(), &WindowModel::noticed,
                         [this](const QString& sentence) { noticed_ << sentence; });
        model_->open(QStringLiteral("wire:all"));
        window_ = std::make_unique<DeskWindow>(*model_);
        QObject::connect(qmlEngine(&window()), &QQmlEngine::warnings, [](const auto& warnings) {
            for (const auto& warning : warnings) ADD_FAILURE() << warning.toString().toStdString();
        });
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
        ASSERT_TRUE(until([&] { return model_->storyList()->list()->count() == 3; }));
    }

    QQuickWindow& window() { return window_->window(); }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&window(), static_cast<Qt::Key>(key), modifiers);
    }
    static QQuickItem* below(QQuickItem* item, const QString& name) {
        if (!item->isVisible()) return nullptr;
        auto* face = QAccessible::queryAccessibleInterface(item);
        if (face && face->text(QAccessible::Name) == name) return item;
        for (auto* child : item->childItems()) {
            if (auto* found = below(child, name)) return found;
        }
        return nullptr;
    }
    bool isSeen(const QString& name) { return below(window().contentItem(), name) != nullptr; }
    void click(const QString& name, Qt::MouseButton button = Qt::LeftButton) {
        ASSERT_TRUE(until([&] { return isSeen(name); })) << name.toStdString();
        auto* item = below(window().contentItem(), name);
        const auto middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
        QTest::mouseClick(&window(), button, {}, middle.toPoint());
    }

    TestStories harness_;
    UndoStack undo_;
    std::unique_ptr<WindowModel> model_;
    std::unique_ptr<DeskWindow> window_;
    QStringList noticed_;
};

TEST_F(FrameJobTest, TheNoticeUndoesItsOwnStepAndTheKeysUndoAndRedo) {
    press(Qt::Key_J);
    const auto id = model_->selectedStory()->id();
    press(Qt::Key_S);
    EXPECT_EQ(model_->actions()->title(DeskAction::Undo), "Undo Save story");
    int panels = 1;
    undo_.push({.text = "Remove panel", .undo = [&] { ++panels; }, .redo = [&] { --panels; }});
    EXPECT_TRUE(until([&] { return !isSeen("Undo"); })) << "the notice about the story has gone";
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
