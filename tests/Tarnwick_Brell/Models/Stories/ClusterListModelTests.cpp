#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Stories/ClusterListModel.h"
#include "tests/support/models/TestStories.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// A list of four stories, of which the first and the third report the same news.
class ClusterListTest : public ::testing::Test {
protected:
    void SetUp() override {
        harness_.tell(
            harness_.story("tide", 60, "Lantern maker opens a harbour office in Larwick"));
        harness_.tell(harness_.story("tide", 66, "Kelp prices fall for a third week"));
        harness_.tell(harness_.story("post", 74, "Lantern maker opens harbour office in Larwick"));
        harness_.tell(harness_.story("tide", 90, "Quiet keyboards sell well"));
        harness_.open();
        const auto clock = harness_.desk.clock();
        stories_ =
            std::make_unique<StoryListController>(*harness_.news, *harness_.newsrooms, clock);
        selected_ =
            std::make_unique<SelectedStory>(*harness_.news, *stories_, harness_.defaults, clock);
        clusters_ =
            std::make_unique<ClusterListModel>(*harness_.news, *stories_, *selected_, clock);
        stories_->open({Destination::Kind::all, {}});
        ASSERT_TRUE(until([&] {
            const auto& made = harness_.news->clusters();
            return stories_->list()->isComplete() && made && made->size() == 1;
        }));
        clusters_->setWanted(true);
    }

    std::string titles() { return column(*clusters_, "title").join('|').toStdString(); }
    QVariant at(int row, ClusterListModel::Role role) { return clusters_->index(row).data(role); }

    TestStories harness_;
    std::unique_ptr<StoryListController> stories_;
    std::unique_ptr<SelectedStory> selected_;
    std::unique_ptr<ClusterListModel> clusters_;
};

TEST_F(ClusterListTest, StoriesOfTheSameNewsAreOneRowThatOpens) {
    const std::string closed =
        "Quiet keyboards sell well|Lantern maker opens a harbour office in Larwick|"
        "Kelp prices fall for a third week";
    ASSERT_TRUE(until([&] { return titles() == closed; })) << titles();
    EXPECT_EQ(at(1, ClusterListModel::OutletCount), "2");
    EXPECT_EQ(at(1, ClusterListModel::Lead), "14 min before post");
    EXPECT_EQ(at(2, ClusterListModel::OutletCount), "1");
    clusters_->toggle(2);
    EXPECT_EQ(titles(), closed) << "one story alone has nothing to open";

    clusters_->choose(1);
    clusters_->setOpen(1, true);
    ASSERT_EQ(clusters_->count(), 5);
    EXPECT_EQ(at(2, ClusterListModel::Lead), "First");
    EXPECT_EQ(at(3, ClusterListModel::Lead), "+14 min");
    clusters_->step(1);
    clusters_->step(1);
    EXPECT_EQ(clusters_->currentRow(), 3);
    EXPECT_EQ(selected_->reader()->source(), "post");
    harness_.come({harness_.story("tide", 200, "Ferries run again")});
    ASSERT_TRUE(until([&] { return clusters_->count() == 6; }));
    EXPECT_EQ(clusters_->currentRow(), 4) << "the same story";
    clusters_->setOpen(4, false);
    EXPECT_EQ(clusters_->currentRow(), 2) << "its cluster";
}

TEST_F(ClusterListTest, ASearchShowsStoriesAndEndingItClustersAgain) {
    ASSERT_TRUE(until([&] { return clusters_->count() == 3; }));
    stories_->setSearchText("kelp");
    EXPECT_FALSE(clusters_->isShown());
    EXPECT_EQ(clusters_->count(), 0);
    stories_->setSearchText("");
    EXPECT_TRUE(until([&] { return clusters_->count() == 3; }));
}

}  // namespace
}  // namespace app
