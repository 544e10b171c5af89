#include <gtest/gtest.h>

#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Window/RefreshStatus.h"
#include "tests/support/models/TestPanels.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using ::test::until;

TEST(RefreshStates, RefreshingByHandFetchesTrackersToo) {
    static int count = 0;
    // The suites beside this one make it too, whichever runs first.
    static auto* application = qApp ? nullptr : new QGuiApplication(count, nullptr);
    Q_UNUSED(application)
    test::TestPanels bench;
    bench.open();
    const auto isCalm = [&] {
        return !bench.news->isRefreshing() && std::ranges::none_of(kTrackers, [&](auto tracker) {
            return bench.trackers->isRefreshing(tracker);
        });
    };
    // The fetches that the stores begin by themselves end within seconds.
    ASSERT_TRUE(until([&] { return bench.trackers->failures() > 0 && isCalm(); }));
    RefreshStatus state({*bench.news, *bench.trackers}, bench.desk.clock());
    state.refresh();
    EXPECT_TRUE(bench.news->isRefreshing());
    for (const auto tracker : kTrackers) EXPECT_TRUE(bench.trackers->isRefreshing(tracker));
    ASSERT_TRUE(until(isCalm));
}

}  // namespace
}  // namespace app
