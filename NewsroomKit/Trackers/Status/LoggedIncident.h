#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Trackers/Status/StatusFeed.h"

namespace kit {

/// One incident of one service, from its beginning to its end.
struct LoggedIncident {
    StatusFeed audience{};
    std::string service{};
    std::string report{};  ///< AppleServiceStatus::Report::id()
    std::string kind{};
    std::string message{};
    // Apple's words:
    std::optional<Instant> started{};
    std::optional<Instant> ended{};
    // What the desk saw:
    Instant firstSeen{};
    Instant lastSeen{};
    std::optional<Instant> endedSeen{};

    bool operator==(const LoggedIncident&) const = default;
};

template <>
struct JSONFields<LoggedIncident> {
    using Logged = LoggedIncident;
    static constexpr auto fields = std::tuple{
        field("audience", &Logged::audience), field("service", &Logged::service),
        field("report", &Logged::report),     field("kind", &Logged::kind),
        field("message", &Logged::message),   field("started", &Logged::started),
        field("ended", &Logged::ended),       field("firstSeen", &Logged::firstSeen),
        field("lastSeen", &Logged::lastSeen), field("endedSeen", &Logged::endedSeen),
    };
};

}  // namespace kit
