#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"

namespace kit {

/// An event of Apple's calendar as countdowns show it.
struct CountdownRow {
    std::string title{};
    /// Absent for a rumored event: its date is only where the service files it.
    std::optional<Instant> starts{};
    int days = 0;  ///< of the reader's calendar from today, negative for the past; 0 without a date
    std::string window{};     ///< what is known of the time, as the service words it
    bool isExpected = false;  ///< the date is an estimate
    bool isReleased = false;
    bool isAnniversary = false;
    int years = 0;  ///< of an anniversary whose title names them

    bool operator==(const CountdownRow&) const = default;
};

/// `daysUntil` says how many days of the reader's calendar lie between today and a moment.
CountdownRow countdownRow(const AppleCalendarEvent& event,
                          const std::function<int(Instant)>& daysUntil);
/// Anniversaries, rumored and released events are never the next.
bool canBeNext(const CountdownRow& row);

struct CountdownContent {
    /// The first event that can be it.
    std::optional<CountdownRow> next{};
    std::vector<CountdownRow> others{};  ///< the earliest first

    bool isEmpty() const { return !next && others.empty(); }
    bool operator==(const CountdownContent&) const = default;
};

/// How long what is over stays, so that a release of the weekend is still there on Monday.
inline constexpr int kDaysShownAfter = 2;

/// The events that one of the terms names, or all without terms.
CountdownContent countdown(const std::vector<AppleCalendarEvent>& events,
                           const std::vector<std::string>& terms,
                           const std::function<int(Instant)>& daysUntil);

}  // namespace kit
