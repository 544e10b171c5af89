#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Status/LoggedIncident.h"
#include "NewsroomKit/Trackers/Status/WatchedSpan.h"

namespace kit {

/// As many days of the reader's calendar as a service's history shows.
inline constexpr std::size_t kHistoryDays = 90;

/// What a day was for a service: its worst incident. A day on which nobody watched is unknown,
/// unless an incident of it is known all the same.
enum class ServiceDay { unknown, up, maintenance, issue, outage };

/// What the desk has seen of Apple's services.
struct StatusHistory {
    std::vector<LoggedIncident> incidents{};
    std::vector<WatchedSpan> consumerWatch{};
    std::vector<WatchedSpan> developerWatch{};

    const std::vector<WatchedSpan>& watch(StatusFeed audience) const {
        return audience == StatusFeed::consumer ? consumerWatch : developerWatch;
    }
    bool operator==(const StatusHistory&) const = default;
};

/// The time of an incident as far as it is known: from Apple's start to Apple's end, and where it
/// gives none, to when the desk saw the end.
struct IncidentTime {
    Instant begin{};
    Instant end{};
    bool isOngoing = false;

    static IncidentTime of(const LoggedIncident& incident, Instant now);
    bool touches(Instant from, Instant to) const {
        return begin < to && (end > from || begin >= from);
    }
    bool operator==(const IncidentTime&) const = default;
};

/// The beginnings of days of the reader's calendar, and the end of the last one: one more than
/// there are days. Days have 23 to 25 hours.
using DayBounds = std::vector<Instant>;

/// The days of one service, whose incidents these are.
std::vector<ServiceDay> serviceDays(const std::vector<LoggedIncident>& incidents,
                                    const std::vector<WatchedSpan>& watch, const DayBounds& days,
                                    Instant now);

/// The part of the watched time in which the service was up, from 0 to 1; maintenance does not
/// count against it. Nothing when nobody watched.
std::optional<double> upShare(const std::vector<LoggedIncident>& incidents,
                              const std::vector<WatchedSpan>& watch, const DayBounds& days,
                              Instant now);

}  // namespace kit
