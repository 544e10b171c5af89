#include <gtest/gtest.h>

#include "Tarnwick_Brell/Desk/SourceOverview.h"

namespace app {
namespace {

SourceLine overviewLine(const std::string& name, kit::NewsSource::Category category) {
    return {.source = {.id = name,
                       .name = name,
                       .feedURL = "https://" + name + ".example/feed",
                       .category = category},
            .isOn = true};
}

class SourceOverviewTest : public ::testing::Test {
protected:
    void SetUp() override {
        using enum kit::NewsSource::Category;
        lines_ = {overviewLine("Tide", press), overviewLine("anchor", apple),
                  overviewLine("Pier", press), overviewLine("Quay", custom)};
        lines_[0].health.latency = 900;
        lines_[2].health.latency = 200;
        lines_[2].status.lastError = "The server answered 503.";
        lines_[1].status.lastError = "The server answered 404.";
        lines_[1].isOn = false;
        lines_[3].source.kind = kit::NewsSource::Kind::custom;
    }

    std::string shown(const SourceChoice& choice) const {
        std::string names;
        for (const auto place : chosenSources(lines_, choice))
            names += lines_[place].source.name + ' ';
        return names;
    }

    std::vector<SourceLine> lines_;
};

TEST_F(SourceOverviewTest, SourcesThatFailComeFirstUnlessTheyAreOff) {
    EXPECT_EQ(shown({}), "Pier anchor Tide Quay ");
}

TEST_F(SourceOverviewTest, AnOrderIgnoresCaseAndLeavesWhatIsUnknownAtTheEnd) {
    EXPECT_EQ(shown({.order = SourceOrder::name}), "anchor Pier Quay Tide ");
    EXPECT_EQ(shown({.order = SourceOrder::latency}), "Pier Tide anchor Quay ");
    EXPECT_EQ(shown({.order = SourceOrder::latency, .isReversed = true}), "Tide Pier anchor Quay ");
}

TEST_F(SourceOverviewTest, SubsetsAndWordsNarrowTheTable) {
    EXPECT_EQ(shown({.subset = SourceSubset::failing}), "Pier ");
    EXPECT_EQ(shown({.subset = SourceSubset::own}), "Quay ");
    EXPECT_EQ(shown({.words = "PRESS  tide"}), "Tide ") << "a group's name and a source's";
    EXPECT_EQ(shown({.words = "quay.example"}), "Quay ");
    EXPECT_EQ(shown({.words = "tide pier"}), "");
}

}  // namespace
}  // namespace app
