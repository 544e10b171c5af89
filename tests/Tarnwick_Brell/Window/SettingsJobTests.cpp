#include <gtest/gtest.h>

#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;

using ::test::until;

class SettingsJobTest : public WindowJobTest {
protected:
    void SetUp() override { openWindow(); }
};

TEST_F(SettingsJobTest, ASettingIsFoundChangedAtOnceAndUndone) {
    press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return named("Search settings") != nullptr && isTyping(); }));
    type("dark");
    ASSERT_TRUE(until([&] { return named("Settings found: 1") != nullptr; }));
    EXPECT_FALSE(model_->appearance()->isDark());
    click("Dark");
    EXPECT_TRUE(model_->appearance()->isDark()) << "the open window follows";
    undo_.undo();
    EXPECT_FALSE(model_->appearance()->isDark());
    EXPECT_EQ(harness_.defaults.text(SettingKey::kAppearance), std::nullopt);

    click("Clear");
    type("minutes between");
    click("Minutes between refreshes");
    press(Qt::Key_A, Qt::ControlModifier);
    type("1");
    press(Qt::Key_Return);
    EXPECT_EQ(harness_.defaults.refreshMinutes(), 5) << "two minutes are the least";
    EXPECT_TRUE(until([&] {
        return named("\"1\" is not a whole number from 2 to 1440, which refreshMinutes needs.");
    }));
    press(Qt::Key_A, Qt::ControlModifier);
    type("7");
    press(Qt::Key_Return);
    EXPECT_EQ(harness_.defaults.refreshMinutes(), 7);
    click("Back to the default: Minutes between refreshes");
    EXPECT_EQ(harness_.defaults.text(SettingKey::kRefreshMinutes), std::nullopt);
}

}  // namespace
}  // namespace app
