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

/// One stretch of trouble of one service, from where it began to where it ended.
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

/// Every trouble that the desk has seen, for good. Apple's own files forget after a while.
///
/// An incident is in it once for each time it was ongoing. What was over before the desk first
/// saw it is in it too, as seen and ended at once.
class IncidentLog {
public:
    explicit IncidentLog(Database& database) : database_(database) {}

    /// Brings the log up to what is known of the services, which must be whole: what is not
    /// ongoing in it has ended, be it that its service says so or is gone. A service that a
    /// single answer lacks must be in it as it was before.
    void note(kit::StatusFeed audience, const kit::AppleServiceStatus::Services& services,
              kit::Instant now);

    /// The last seen first. `text` is looked for in services and messages; empty finds all.
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
