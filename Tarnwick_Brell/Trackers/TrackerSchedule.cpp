#include "Tarnwick_Brell/Trackers/TrackerSchedule.h"

#include <utility>

namespace app {

using namespace std::chrono_literals;

namespace {

constexpr auto kWhileMarketIsClosed = 15min;

const TrackerSchedule::Intervals& usualIntervals() {
    static const TrackerSchedule::Intervals intervals{{TrackerRound::status, 2min},
                                                      {TrackerRound::releases, 5min},
                                                      {TrackerRound::quotes, kWhileMarketIsClosed},
                                                      {TrackerRound::board, 5min},
                                                      {TrackerRound::events, 1h}};
    return intervals;
}

}  // namespace

TrackerSchedule::TrackerSchedule(const Ages& ages, Now now, Spread spread)
    : RoundSchedule(usualIntervals(), ages, now, std::move(spread)) {}

void TrackerSchedule::setMarketOpen(bool open) {
    setInterval(TrackerRound::quotes, open ? 1min : kWhileMarketIsClosed);
}

}  // namespace app
