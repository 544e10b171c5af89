#include <gtest/gtest.h>

#include <latch>
#include <thread>
#include <vector>

#include "NewsroomKit/Editorial/AppleOrigin.h"
#include "NewsroomKit/Editorial/MarketNews.h"
#include "NewsroomKit/Editorial/StoryLabels.h"

namespace kit {
namespace {

TEST(RulesThread, severalThreadsMayBeTheFirstToUseTheRules) {
    constexpr int threadCount = 4;
    std::latch start(threadCount);
    std::vector<StoryLabels> labels(threadCount);
    std::vector<std::optional<MarketNews::Reason>> reasons(threadCount);
    std::vector<char> onRecord(threadCount);
    {
        std::vector<std::jthread> threads;
        for (std::size_t index = 0; index < threadCount; ++index) {
            threads.emplace_back([&, index] {
                start.arrive_and_wait();
                labels[index] =
                    labelStory("“Ünreviewed” Ｍａｃ deals", "Reportedly 👩‍👧", false, true);
                reasons[index] = MarketNews::reason("Apple shares rose");
                onRecord[index] = AppleOrigin::isAppleOnRecord("Apple says", "");
            });
        }
    }
    for (std::size_t index = 0; index < threadCount; ++index) {
        EXPECT_EQ(labels[index].kind->kind, StoryKind::deal);
        EXPECT_EQ(labels[index].sourcing.sourcing, Sourcing::report);
        EXPECT_EQ(reasons[index], MarketNews::Reason::stock);
        EXPECT_TRUE(onRecord[index]);
    }
}

}  // namespace
}  // namespace kit
