#include <gtest/gtest.h>

#include "Tarnwick_Brell/Trackers/StatusWatch.h"
#include "tests/support/app/TestDesk.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using kit::Instant;
using kit::StatusFeed;

TEST(StatusWatchTest, AnswersWithoutALongPauseAreOneSpan) {
    const test::TestDesk desk{{}};
    LocalStore library(desk.library(), Database::Access::readWrite);
    auto& state = library.state();
    const auto start = desk.now();
    struct Step {
        const char* when;
        Instant now;
        std::size_t spans;
        Instant last;  ///< the end of the last span
    };
    const Step steps[]{
        {"the first answer", start, 1, start},
        {"five minutes later", start + 5min, 1, start + 5min},
        {"after a night off", start + 9h, 2, start + 9h},
        {"the clock went back", start + 8h, 2, start + 9h},
        {"it has caught up", start + 9h + 1min, 2, start + 9h + 1min},
        {"months later, the old spans are gone", start + std::chrono::days(200), 1,
         start + std::chrono::days(200)},
    };
    for (const auto& step : steps) {
        extendWatch(state, StatusFeed::consumer, step.now);
        const auto spans = watchedSpans(state, StatusFeed::consumer);
        ASSERT_EQ(spans.size(), step.spans) << step.when;
        EXPECT_EQ(spans.back().to, step.last) << step.when;
        EXPECT_LE(spans.back().from, spans.back().to) << step.when;
    }
    EXPECT_TRUE(watchedSpans(state, StatusFeed::developer).empty()) << "each file has its own";
    state.setText("statusWatch/consumer", "{");
    EXPECT_TRUE(watchedSpans(state, StatusFeed::consumer).empty());
    extendWatch(state, StatusFeed::consumer, start);
    EXPECT_EQ(watchedSpans(state, StatusFeed::consumer).size(), 1u) << "a damaged log begins anew";
}

}  // namespace
}  // namespace app
