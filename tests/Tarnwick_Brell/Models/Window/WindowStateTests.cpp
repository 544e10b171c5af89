#include <gtest/gtest.h>

#include <sys/stat.h>

#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Window/WindowGeometry.h"
#include "Tarnwick_Brell/Models/Window/WindowState.h"
#include "tests/support/EventLoop.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

class WindowStateTest : public ::testing::Test {
protected:
    ::test::TemporaryFolder folder_;
    Defaults defaults_{folder_.path() / "settings.ini"};
};

TEST_F(WindowStateTest, WhatTheWindowWasIsThereAgain) {
    const QRect frame(40, 30, 640, 480);
    {
        WindowState state(defaults_);
        QWindow window;
        state.attach(&window);
        window.setGeometry(frame);
        window.show();
        state.setSidebarWidth(300);
        state.setListWidth(20);
        state.moveReader();
        state.setClustered("wire:unread", true);
        state.setStory("https://tide.example/1");
        state.setPlace("beat:ü\n=1");
        state.setCollapsed("Apple press", true);
        state.setCollapsed("Podcasts", true);
        state.setCollapsed("Apple press", false);
        ASSERT_TRUE(::test::until([&] { return state.frame() == frame; })) << "after a moment";
        window.setWindowStates(Qt::WindowMaximized);
        ASSERT_TRUE(::test::until([&] { return state.isMaximised(); }));
        state.setSidebarShown(false);
    }
    WindowState again(defaults_);
    EXPECT_TRUE(again.isClustered("wire:unread"));
    EXPECT_EQ(again.story(), "") << "a run that ended in order";
    EXPECT_EQ(again.sidebarWidth(), 300);
    EXPECT_EQ(again.listWidth(), WindowState::kLeastList);
    EXPECT_EQ(again.reader(), WindowState::Below);
    EXPECT_EQ(again.place(), "beat:ü\n=1");
    EXPECT_EQ(again.collapsedGroups(), QStringList{"Podcasts"});
    EXPECT_FALSE(again.sidebarShown()) << "kept although it was left at once";
    EXPECT_TRUE(again.isMaximised());
    EXPECT_EQ(again.frame(), frame) << "the size before it was maximised";
    QWindow window;
    again.attach(&window);
    EXPECT_EQ(window.windowState(), Qt::WindowMaximized);
}

TEST_F(WindowStateTest, TheReaderStandsWhereTheSettingSaysInEveryWindow) {
    WindowState one(defaults_, 1), two(defaults_, 2);
    one.moveReader();
    EXPECT_EQ(two.reader(), WindowState::Below);
    EXPECT_EQ(defaults_.text(SettingKey::kReaderPlace), "below");
    defaults_.set(SettingKey::kReaderPlace, "hidden");
    EXPECT_EQ(one.reader(), WindowState::Hidden);
}

TEST_F(WindowStateTest, NonsenseCountsAsAbsent) {
    defaults_.remember("window", {{"x", "5"},
                                  {"y", "5"},
                                  {"width", "-700"},
                                  {"height", "99999999999"},
                                  {"sidebarWidth", "3000"},
                                  {"listWidth", "wide"},
                                  {"sidebarShown", "perhaps"}});
    const WindowState state(defaults_);
    EXPECT_EQ(state.frame(), std::nullopt);
    EXPECT_EQ(state.sidebarWidth(), WindowState::kSidebar);
    EXPECT_EQ(state.listWidth(), WindowState::kList);
    EXPECT_TRUE(state.sidebarShown());
}

TEST_F(WindowStateTest, AFileThatCantBeWrittenIsToldOnce) {
    // A folder in the file's place stops even those whom permissions don't.
    mkdir((folder_.path() / "settings.ini").c_str(), 0700);
    WindowState state(defaults_);
    int notices = 0;
    QObject::connect(&state, &WindowState::failed, [&] { ++notices; });
    state.setSidebarWidth(300);
    state.save();
    state.setSidebarWidth(310);
    state.save();
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(state.sidebarWidth(), 310);
}

TEST(WindowGeometry, AWindowStandsOnAScreenThatExists) {
    const QRect laptop(0, 30, 1600, 970), monitor(1600, 0, 2560, 1440);
    struct Case {
        QRect wanted;
        QList<QRect> screens;
        QRect expected;
    };
    const Case cases[] = {
        {{1700, 100, 1360, 860}, {laptop, monitor}, {1700, 100, 1360, 860}},
        // The monitor is gone.
        {{1700, 100, 1360, 860}, {laptop}, {120, 85, 1360, 860}},
        {{1500, 100, 1360, 860}, {laptop, monitor}, {1600, 100, 1360, 860}},
        {{-200, -50, 1360, 860}, {laptop}, {0, 30, 1360, 860}},
        {{0, 0, 3000, 2000}, {laptop}, {0, 30, 1600, 970}},
        {{10, 40, 100, 100}, {laptop}, {10, 40, 960, 600}},
        {{10, 10, 960, 600}, {QRect(0, 0, 800, 480)}, {0, 0, 960, 600}},
        {{10, 10, 1000, 600}, {}, {10, 10, 1000, 600}},
    };
    for (const auto& c : cases) {
        const auto place = placeOnScreens(c.wanted, {960, 600}, c.screens);
        EXPECT_EQ(place, c.expected)
            << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height();
    }
}

}  // namespace
}  // namespace app
