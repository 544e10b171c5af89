#pragma once

#include <array>
#include <utility>

#include "Tarnwick_Brell/Trackers/RoundSchedule.h"

namespace app {

/// What is fetched together.
enum class SignalRound { signing, updates, charts };

inline constexpr std::array kSignalRounds{SignalRound::signing, SignalRound::updates,
                                          SignalRound::charts};

/// When which signals are due.
class SignalSchedule : public RoundSchedule<SignalRound> {
public:
    static constexpr std::chrono::minutes kInterval{30};

    SignalSchedule(const Ages& ages, Now now, Spread spread)
        : RoundSchedule({{SignalRound::signing, kInterval},
                         {SignalRound::updates, kInterval},
                         {SignalRound::charts, kInterval}},
                        ages, now, std::move(spread)) {}
};

}  // namespace app
