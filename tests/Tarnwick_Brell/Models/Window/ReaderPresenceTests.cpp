#include <gtest/gtest.h>

#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Window/ReaderPresence.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using kit::Instant;

class ReaderPresenceTest : public ::testing::Test {
protected:
    ReaderPresenceTest() {
        presence_.setVisible(true);
        presence_.setFocused(true);
    }

    Instant now_{1000h};
    std::vector<Instant> left_;
    ReaderPresence presence_{[this] { return now_; },
                             [this](Instant moment) { left_.push_back(moment); }, 30ms};
};

TEST_F(ReaderPresenceTest, WhoeverHidesTheWindowHasLeftUntilItIsShownAgain) {
    presence_.setVisible(false);
    const auto first = now_;
    now_ += 1h;
    presence_.setFocused(false);
    presence_.setVisible(false);
    EXPECT_EQ(left_, std::vector{first}) << "who is away does not leave again";
    presence_.setVisible(true);
    now_ += 1h;
    presence_.setVisible(false);
    EXPECT_EQ(left_, (std::vector{first, now_}));
}

TEST_F(ReaderPresenceTest, WithoutTheFocusForAWhileTheReaderLeftWhenItWasLost) {
    const auto lost = now_;
    presence_.setFocused(false);
    now_ += 1ms;
    presence_.setFocused(true);
    EXPECT_TRUE(left_.empty()) << "a glance at another window";
    presence_.setFocused(false);
    now_ += 10ms;
    EXPECT_TRUE(::test::until([&] { return !left_.empty(); }));
    EXPECT_EQ(left_, std::vector{lost + 1ms});
}

TEST_F(ReaderPresenceTest, TimeThatTheComputerSleptCounts) {
    const auto lost = now_;
    presence_.setFocused(false);
    now_ += 8h;
    presence_.setFocused(true);
    EXPECT_EQ(left_, std::vector{lost});
    now_ += 1h;
    presence_.setVisible(false);
    EXPECT_EQ(left_, (std::vector{lost, now_})) << "back in between";
}

}  // namespace
}  // namespace app
