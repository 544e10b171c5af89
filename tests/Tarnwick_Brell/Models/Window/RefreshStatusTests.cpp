#include <gtest/gtest.h>

#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Window/RefreshStatus.h"
#include "tests/support/models/TestPanels.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using ::test::until;

TEST(RefreshStates, RefreshingByHandFetchesTrackersToo) {
    test::TestPanels harness;
    harness.open();
    const auto isCalm = [&] {
        return !harness.news->isRefreshing() && std::ranges::none_of(kTrackers, [&](auto tracker) {
            return harness.trackers->isRefreshing(tracker);
        });
    };
    // The fetches that the stores begin by themselves end within seconds.
    ASSERT_TRUE(until([&] { return harness.trackers->failures() > 0 && isCalm(); }));
    RefreshStatus state({*harness.news, *harness.trackers}, harness.desk.clock());
    state.refresh();
    EXPECT_TRUE(harness.news->isRefreshing());
    for (const auto tracker : kTrackers) EXPECT_TRUE(harness.trackers->isRefreshing(tracker));
    ASSERT_TRUE(until(isCalm));
}

}  // namespace
}  // namespace app
