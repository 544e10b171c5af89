#include <gtest/gtest.h>

#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;

using ::test::until;

/// The window at a wire of twelve stories, three of them about orchards.
class BeatJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        for (int i = 1; i <= 12; ++i) {
            harness_.tell(harness_.story(
                i % 2 == 0 ? "tide" : "post", i * 30,
                (i % 4 == 0 ? "Orchard news " : "Harbour news ") + std::to_string(i)));
        }
        openWindow();
    }

    StoryListModel& list() { return *model_->storyList()->list(); }
    void goToWire() {
        type("gw");
        ASSERT_TRUE(until([&] { return list().isComplete() && list().count() == 12; }));
    }
};

TEST_F(BeatJobTest, ABeatIsMadeChangedRemovedAndBroughtBackByKeys) {
    const auto beats = [this]() -> const auto& { return harness_.newsrooms->beats().entries(); };
    goToWire();
    press(Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(until([&] { return named("New beat") != nullptr && isTyping(); }));
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(beats().empty()) << "it asks for nothing yet";
    type("orchard,");
    EXPECT_TRUE(until([&] { return named("3 stories") != nullptr; })) << "what it would have found";
    EXPECT_TRUE(until([&] { return named("Orchard news 12, tide, 6 h") != nullptr; }));
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(beats().size(), 1u);
    EXPECT_EQ(beats().front().name, "orchard") << "after its first word";
    EXPECT_EQ(model_->placeKey().toStdString(), "beat:" + beats().front().id);
    EXPECT_TRUE(until([&] { return list().count() == 3; }));

    model_->beatActions()->edit(model_->placeKey());
    ASSERT_TRUE(until([&] { return named("Edit beat") != nullptr && isTyping(); }));
    type("Fruit");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(beats().front().name.substr(0, 5), "Fruit");
    ASSERT_TRUE(until([&] { return named("Edit beat") == nullptr; }));

    named("Places")->forceActiveFocus();
    press(Qt::Key_Delete);
    EXPECT_TRUE(beats().empty());
    press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(beats().size(), 1u);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(beats().front().name, "orchard");
}

TEST_F(BeatJobTest, FollowingAStoryProposesTheNamesOfItsHeadline) {
    goToWire();
    type("j");
    type("b");
    ASSERT_TRUE(until([&] { return named("New beat") != nullptr; }));
    EXPECT_NE(named("Remove Orchard"), nullptr);
}

}  // namespace
}  // namespace app
