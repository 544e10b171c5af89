#include <gtest/gtest.h>

#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Window/RefreshStatus.h"
#include "tests/support/models/TestPanels.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using ::test::until;

TEST(RefreshStates, RefreshingByHandFetchesTrackersAndSignalsToo) {
    static int count = 0;
    // The suites beside this one make it too, whichever runs first.
    static auto* application = qApp ? nullptr : new QGuiApplication(count, nullptr);
    Q_UNUSED(application)
    test::TestPanels bench;
    bench.open();
    bench.signalsStore->start();
    const auto isCalm = [&] {
        return bench.signalsStore->isLoaded() && !bench.news->isRefreshing() &&
               std::ranges::none_of(
                   kTrackerRounds,
                   [&](auto round) { return bench.trackers->isRefreshing(round); }) &&
               std::ranges::none_of(kSignalRounds, [&](auto round) {
                   return bench.signalsStore->isRefreshing(round);
               });
    };
    // What the stores fetch by themselves at their start comes within seconds.
    ASSERT_TRUE(until([&] {
        return bench.trackers->failures() > 0 && bench.signalsStore->failures() > 0 && isCalm();
    }));
    RefreshStatus state({*bench.news, *bench.trackers, *bench.signalsStore}, bench.desk.clock());
    state.refresh();
    EXPECT_TRUE(bench.news->isRefreshing());
    for (const auto round : kTrackerRounds) EXPECT_TRUE(bench.trackers->isRefreshing(round));
    for (const auto round : kSignalRounds) EXPECT_TRUE(bench.signalsStore->isRefreshing(round));
    ASSERT_TRUE(until(isCalm));
}

}  // namespace
}  // namespace app
