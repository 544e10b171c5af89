#pragma once

#include <array>

#include "Tarnwick_Brell/Trackers/RoundSchedule.h"

namespace app {

/// What is fetched together.
enum class TrackerRound { status, releases, quotes, board, events };

inline constexpr std::array kTrackerRounds{TrackerRound::status, TrackerRound::releases,
                                           TrackerRound::quotes, TrackerRound::board,
                                           TrackerRound::events};

/// When which trackers are due.
class TrackerSchedule : public RoundSchedule<TrackerRound> {
public:
    TrackerSchedule(const Ages& ages, Now now, Spread spread);

    void setMarketOpen(bool open);
};

}  // namespace app
