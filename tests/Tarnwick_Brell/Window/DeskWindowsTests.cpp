#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTest>

#include "Tarnwick_Brell/Pictures/PictureLoader.h"
#include "Tarnwick_Brell/Window/DeskWindows.h"
#include "tests/support/EventLoop.h"
#include "tests/support/models/TestStories.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

class DeskWindowsTest : public ::testing::Test {
protected:
    void SetUp() override {
        harness_.tell(harness_.story("tide", 60, "Kelp prices fall for a third week"));
        harness_.open();
        start();
    }
    void start() {
        const DeskStores stores{.news = *harness_.news,
                                .trackers = *harness_.trackers,
                                .newsrooms = *harness_.newsrooms,
                                .alerts = *harness_.alerts,
                                .kept = *harness_.kept,
                                .defaults = harness_.defaults,
                                .clock = harness_.desk.clock(),
                                .undo = undo_};
        windows_ = std::make_unique<DeskWindows>(stores, pictures_);
        windows_->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&windows_->window().window()));
    }
    static std::vector<QWindow*> shown() {
        std::vector<QWindow*> windows;
        for (auto* window : QGuiApplication::topLevelWindows())
            if (window->isVisible() && window->inherits("QQuickWindow")) windows.push_back(window);
        return windows;
    }
    /// The keys open another window, which comes to the front.
    void openAnother() {
        const auto before = shown().size();
        QTest::keyClick(&windows_->window().window(), Qt::Key_O,
                        Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(until([&] { return shown().size() == before + 1; }));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&windows_->window().window()));
    }

    TestStories harness_;
    UndoStack undo_;
    PictureLoader pictures_{{}};
    std::unique_ptr<DeskWindows> windows_;
};

TEST_F(DeskWindowsTest, AnotherWindowHasAPlaceOfItsOwnAndComesBackAtTheNextStart) {
    windows_->first().open(QStringLiteral("wire:saved"));
    openAnother();
    auto& second = windows_->model();
    ASSERT_NE(&second, &windows_->first());
    EXPECT_EQ(second.placeKey(), "wire:saved");
    second.open(QStringLiteral("tracker:charts"));
    EXPECT_EQ(windows_->first().placeKey(), "wire:saved");

    windows_.reset();
    EXPECT_TRUE(shown().empty());
    start();
    ASSERT_EQ(shown().size(), 2u);
    EXPECT_EQ(windows_->first().placeKey(), "wire:saved");
    openAnother();

    ASSERT_TRUE(windows_->window().window().close());
    EXPECT_TRUE(until([&] { return &windows_->model() == &windows_->first(); }));
    windows_.reset();
    start();
    EXPECT_EQ(shown().size(), 2u) << "the closed one is forgotten";
}

TEST_F(DeskWindowsTest, OnlyTheLastWindowInSightAsksBeforeItCloses) {
    int asked = 0;
    windows_->setCloseRule([&] {
        ++asked;
        windows_->hide();
        return false;
    });
    openAnother();
    EXPECT_TRUE(windows_->window().window().close());
    EXPECT_TRUE(until([&] { return shown().size() == 1; }));
    EXPECT_EQ(asked, 0);
    windows_->window().window().close();
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(shown().empty());
    windows_->raise({});
    EXPECT_EQ(shown().size(), 1u);
}

TEST_F(DeskWindowsTest, StepsAreSharedAndThereIsAMostOfWindows) {
    for (int more = 1; more < DeskWindows::kMost; ++more) openAnother();
    QString sentence;
    QObject::connect(&windows_->model(), &WindowModel::noticed,
                     [&](const QString& text) { sentence = text; });
    windows_->openAnother(QStringLiteral("wire:all"));
    EXPECT_TRUE(sentence.startsWith("8 windows")) << sentence.toStdString();
    bool isUndone = false;
    undo_.push({.text = "Step", .undo = [&] { isUndone = true; }, .redo = [] {}});
    windows_->first().actions()->trigger(DeskAction::Undo);
    EXPECT_TRUE(isUndone);
}

}  // namespace
}  // namespace app
