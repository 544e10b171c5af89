#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Status/StatusFeed.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// One incident of one service, from its beginning to its end.
struct LoggedIncident {
    kit::StatusFeed audience{};
    std::string service{};
    std::string report{};  ///< AppleServiceStatus::Report::id()
    std::string kind{};
    std::string message{};
    // Apple's words:
    std::optional<kit::Instant> started{};
    std::optional<kit::Instant> ended{};
    // What the desk saw:
    kit::Instant firstSeen{};
    kit::Instant lastSeen{};
    std::optional<kit::Instant> endedSeen{};

    bool operator==(const LoggedIncident&) const = default;
};

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

template <>
struct kit::JSONFields<app::LoggedIncident> {
    using Logged = app::LoggedIncident;
    static constexpr auto fields = std::tuple{
        field("audience", &Logged::audience), field("service", &Logged::service),
        field("report", &Logged::report),     field("kind", &Logged::kind),
        field("message", &Logged::message),   field("started", &Logged::started),
        field("ended", &Logged::ended),       field("firstSeen", &Logged::firstSeen),
        field("lastSeen", &Logged::lastSeen), field("endedSeen", &Logged::endedSeen),
    };
};
