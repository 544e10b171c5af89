#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/ServiceHistory.h"
#include "NewsroomKit/Panels/StatusContent.h"

namespace kit {

/// Which services the page shows.
struct StatusFilter {
    std::optional<StatusFeed> audience{};  ///< both without
    std::string words{};                   ///< of the service's name; any case

    bool operator==(const StatusFilter&) const = default;
};

/// Apple's services with what happened to each: problems, tables of both files, the log.
struct StatusPageContent {
    struct Incident {
        LoggedIncident logged{};
        ProblemLevel level = ProblemLevel::issue;
        IncidentTime time{};
    };
    struct Problem {
        StatusContent::Incident incident{};
        std::optional<Instant> firstSeen{};  ///< by the desk
    };
    struct Service {
        std::string name{};
        std::optional<ProblemLevel> problem{};  ///< under way
        std::vector<ServiceDay> days{};
        std::optional<double> share{};
        std::vector<Incident> incidents{};  ///< of these days, the last begun first

        bool isQuiet() const { return !problem && incidents.empty(); }
    };
    struct Table {
        StatusFeed audience{};
        std::optional<StatusContent::Tally> tally{};  ///< of the whole file
        std::optional<std::string> error{};
        /// Problems, then services with incidents, the last begun first, then the others by name.
        std::vector<Service> services{};
        std::size_t watchedDays = 0;  ///< on which the desk watched this file
    };

    PanelCondition condition{};
    std::vector<Problem> problems{};
    std::vector<Table> tables{};
    std::vector<Incident> log{};  ///< of these days, the last begun first
};

/// `days` are the days to show; see DayBounds.
StatusPageContent statusPageContent(const CachedValue<StatusContent::Services>& consumer,
                                    const CachedValue<StatusContent::Services>& developer,
                                    const StatusHistory& history, const StatusFilter& filter,
                                    const DayBounds& days, Instant now);

}  // namespace kit
