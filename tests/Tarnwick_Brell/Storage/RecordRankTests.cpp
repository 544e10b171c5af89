#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "Tarnwick_Brell/Storage/Tables/RecordRank.h"

namespace app {
namespace {

TEST(RecordRank, BetweenTwoRanksThereIsAlwaysAnother) {
    std::mt19937 random(7);
    for (const std::size_t reach : {1u, 2u, 1000u}) {
        std::vector<std::string> ranks{rankBetween("", "")};
        for (int i = 0; i < 500; ++i) {
            const auto at = 1 + random() % std::min(reach, ranks.size());
            const auto high = at < ranks.size() ? ranks[at] : "";
            const auto rank = rankBetween(ranks[at - 1], high);
            ASSERT_LT(ranks[at - 1], rank);
            ASSERT_TRUE(high.empty() || rank < high);
            ranks.insert(ranks.begin() + static_cast<std::ptrdiff_t>(at), rank);
        }
    }
}

}  // namespace
}  // namespace app
