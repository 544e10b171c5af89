#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Pages/PagesPageModel.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// The page of followed pages.
class PagesJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        openWindow();
        model_->open(QStringLiteral("tracker:pages"));
        ASSERT_TRUE(until([&] { return page().state() == PanelModel::Ready; }));
    }
    PagesPageModel& page() { return dynamic_cast<PagesPageModel&>(*model_->page()); }
    bool isShown(const char* name) {
        for (int row = 0; row < page().rows()->rowCount(); ++row) {
            page().setRow(row);
            if (page().chosenName() == QString::fromUtf8(name)) return page().isFollowed();
        }
        return false;
    }
};

TEST_F(PagesJobTest, APageIsFollowedUnfollowedAndTheStepIsUndone) {
    EXPECT_TRUE(page().isSuggested()) << "nothing is followed before the user wants it";
    page().addPage(QStringLiteral("ftp://tide.example/table"));
    EXPECT_EQ(noticed_.size(), 1) << "only pages of https";
    page().followSuggested();
    ASSERT_TRUE(until([&] { return isShown("App Store Review Guidelines"); }));
    page().removePage();
    ASSERT_TRUE(until([&] { return !isShown("App Store Review Guidelines"); }));
    EXPECT_TRUE(undo_.undo());
    EXPECT_TRUE(until([&] { return isShown("App Store Review Guidelines"); }));
}

}  // namespace
}  // namespace app
