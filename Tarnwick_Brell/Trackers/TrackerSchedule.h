#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/RefreshCadence.h"

namespace desk {

/// What is fetched together.
enum class TrackerRound { status, releases, quotes, board, events };

inline constexpr std::array kTrackerRounds{TrackerRound::status, TrackerRound::releases,
                                           TrackerRound::quotes, TrackerRound::board,
                                           TrackerRound::events};

/// When which trackers are due. It goes by the clock that only ever runs forward; the wall
/// clock tells only that the computer has slept, and how old the copies of the last run are.
class TrackerSchedule {
public:
    using Now = RefreshCadence::Now;
    using Steady = RefreshCadence::Steady;
    /// Gives a number from -1 to 1. Intervals vary by it, so that many desks that started or
    /// woke at one moment do not ask in step.
    using Spread = std::function<double()>;
    /// When what is shown was fetched; a round without an entry never was.
    using Ages = std::map<TrackerRound, newsroom::Instant>;

    TrackerSchedule(const Ages& ages, Now now, Spread spread);

    void setMarketOpen(bool open);

    void began(TrackerRound round, Now now);
    void ended(TrackerRound round, Now now, bool wasGood);
    /// Due at once, whatever its interval: at the user's wish.
    void ask(TrackerRound round, Now now);
    /// What has failed of late is due at once.
    void networkIsBack(Now now);

    /// To be called at least every half minute: it notices that the computer slept. What is
    /// under way is not due.
    std::vector<TrackerRound> due(Now now);
    /// When something becomes due, if nothing else happens.
    std::optional<Steady> next() const;

private:
    struct Round {
        Steady next{};
        Steady ended{};
        newsroom::Instant endedWall{};
        int failures = 0;  ///< in a row
        bool isUnderWay = false;
        bool isAskedAgain = false;  ///< while it was under way
    };

    std::chrono::milliseconds interval(TrackerRound round) const;
    std::chrono::milliseconds pause(TrackerRound round) const;
    std::chrono::milliseconds soon(std::chrono::milliseconds longest) const;
    void catchUp(Now now);

    std::map<TrackerRound, Round> rounds_;
    Spread spread_;
    Now lastLook_;
    bool isMarketOpen_ = false;
};

}  // namespace desk
