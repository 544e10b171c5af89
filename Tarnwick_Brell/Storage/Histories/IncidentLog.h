#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Status/LoggedIncident.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

using kit::LoggedIncident;

/// Every incident that the desk has seen, kept permanently. Apple's own files drop them after a
/// while.
///
/// An incident has one entry for each time it was ongoing. One that was over before the desk first
/// saw it is recorded as seen and ended at once.
class IncidentLog {
public:
    explicit IncidentLog(Database& database) : database_(database) {}

    /// Updates the log from `services`, which must be complete: an incident that is not ongoing
    /// there has ended, also when its service is gone. A service that is missing from a single
    /// answer must be included as it was before.
    void record(kit::StatusFeed audience, const kit::AppleServiceStatus::Services& services,
                kit::Instant now);

    /// The last seen first. Searches services and messages for `text`; empty text finds all.
    std::vector<LoggedIncident> find(std::string_view text, std::size_t most);

private:
    Database& database_;
};

}  // namespace app
