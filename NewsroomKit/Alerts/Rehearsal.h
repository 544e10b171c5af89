#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Alerts/AlertEvent.h"
#include "NewsroomKit/Alerts/AlertPipeline.h"
#include "NewsroomKit/Alerts/AlertRuleSet.h"
#include "NewsroomKit/Clusters/StoryCluster.h"

namespace kit {

/// What rules make of the events of the past: the same that they would have told live.
struct AlertRun {
    struct Match {
        AlertMatch match{};
        std::size_t event = 0;                ///< its place among the events
        std::optional<HeldAlert::Why> why{};  ///< why it was not told at once
    };

    std::vector<Match> matches{};  ///< in the order of the events
    std::vector<AlertTelling> told{};
    std::vector<HeldAlert> held{};  ///< what was not told in the end
};

/// Holds the rules against the events, which are in the order of their times, and goes on telling
/// what is held until `until`.
AlertRun runAlerts(const std::vector<AlertRule>& rules,
                   const AlertRuleSet::QueryOfBeat& queryOfBeat, std::span<const AlertEvent> events,
                   std::span<const StoryCluster> clusters, const AlertQuiet& quiet, Instant until);

/// What a rule would have told of the last days.
struct Rehearsal {
    struct Told {
        AlertRun::Match match{};
        AlertTelling::How how = AlertTelling::How::notified;
        std::optional<Instant> toldAt{};  ///< nothing when it is still held
    };
    /// Of these matches there are so many of each kind.
    struct Count {
        std::size_t atOnce = 0;  ///< notified, or quietly noted
        std::size_t afterQuietHours = 0;
        std::size_t heldBack = 0;  ///< by the rule's own minutes
        std::size_t overCap = 0;
    };

    std::size_t total = 0;
    Count count{};
    std::vector<std::size_t> perDay{};  ///< 24 hours each, the last one ends now
    std::vector<Told> told{};           ///< the newest matches first, at most kMostShown

    static constexpr std::size_t kMostShown = 100;

    double aDay() const {
        return perDay.empty() ? 0 : static_cast<double>(total) / static_cast<double>(perDay.size());
    }
};

/// `events` are those of the last `days` days.
Rehearsal rehearse(const AlertRule& rule, const AlertRuleSet::QueryOfBeat& queryOfBeat,
                   std::span<const AlertEvent> events, std::span<const StoryCluster> clusters,
                   const AlertQuiet& quiet, Instant now, std::size_t days);

}  // namespace kit
