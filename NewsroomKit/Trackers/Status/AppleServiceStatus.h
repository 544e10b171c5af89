#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/RecordHash.h"

namespace kit {

/// How bad an incident is.
enum class ProblemLevel { issue, outage, maintenance };

template <>
inline constexpr std::array<EnumRow<ProblemLevel>, 3> enumTable<ProblemLevel>{{
    {ProblemLevel::issue, "issue", "Issue"},
    {ProblemLevel::outage, "outage", "Outage"},
    {ProblemLevel::maintenance, "maintenance", "Maintenance"},
}};

/// The level that the file's word for an incident's kind names, in small letters or capitals; any
/// other word is an issue.
ProblemLevel problemLevel(std::string_view kind);

/// Which of Apple's services work, as Apple's System Status page has it: services, each with
/// the incidents of the last weeks.
struct AppleServiceStatus {
    struct Incident {
        std::string kind{};    ///< "Outage", "Maintenance", …; "Issue" when Apple gives none
        std::string status{};  ///< "ongoing", "resolved", …
        std::string message{};
        std::optional<std::string> usersAffected{};
        std::optional<Instant> started{};
        std::optional<Instant> ended{};
        /// `started` as the file has it, in seconds since 1970. Ids are made from it, because an
        /// Instant rounds to microseconds. No part of the JSON form.
        std::optional<double> exactStart{};

        bool isOngoing() const { return status == "ongoing"; }

        bool operator==(const Incident&) const = default;
    };

    struct Service {
        std::string name{};
        std::vector<Incident> events{};

        bool operator==(const Service&) const = default;
    };

    using Services = std::vector<Service>;

    /// One incident of one service, as lists and notifications show it.
    struct Report {
        std::string service{};
        Incident incident{};

        /// The same for the same incident in every answer: the service, "|", and the start in
        /// seconds since 1970 ("1700000000.0") or, without one, the message.
        std::string id() const;

        bool operator==(const Report&) const = default;
    };

    Services services{};

    /// Reads a status file: the object itself, or the object wrapped into a script's call.
    /// An event without a status is ongoing: it stands in the file because something is wrong.
    /// Starts and ends outside the years 1 to 9999 are no Instants and read as absent; ids are
    /// made from such a start all the same. Throws RecordError.
    static Services parse(std::string_view body);

    /// One report for each service that has an ongoing incident: its first.
    static std::vector<Report> ongoingReports(const Services& services);

    /// What is over and began at or after `cutOff`, newest first. An incident without a start
    /// began in the distant past (kDistantPast).
    static std::vector<Report> recentReports(Instant cutOff, const Services& services);

    static constexpr Instant kDistantPast = std::chrono::sys_days{std::chrono::year{1} / 1 / 1};

    bool operator==(const AppleServiceStatus&) const = default;
};

/// Seconds since 1970 in the shortest form that reads back equal, always with a fraction:
/// "1700000000.0", "0.25". What ids of reports and notifications are made of.
std::string decimalSeconds(double seconds);
std::string decimalSeconds(Instant instant);

template <>
struct JSONFields<AppleServiceStatus::Incident> {
    using Incident = AppleServiceStatus::Incident;
    static constexpr auto fields = std::tuple{
        field("kind", &Incident::kind),       field("status", &Incident::status),
        field("message", &Incident::message), field("usersAffected", &Incident::usersAffected),
        field("started", &Incident::started), field("ended", &Incident::ended),
    };
};

template <>
struct JSONFields<AppleServiceStatus::Service> {
    static constexpr auto fields = std::tuple{
        field("name", &AppleServiceStatus::Service::name),
        field("events", &AppleServiceStatus::Service::events),
    };
};

template <>
struct JSONFields<AppleServiceStatus::Report> {
    static constexpr auto fields = std::tuple{
        field("service", &AppleServiceStatus::Report::service),
        field("incident", &AppleServiceStatus::Report::incident),
    };
};

template <>
struct JSONFields<AppleServiceStatus> {
    static constexpr auto fields = std::tuple{field("services", &AppleServiceStatus::services)};
};

}  // namespace kit

template <>
struct std::hash<kit::AppleServiceStatus::Incident>
    : kit::RecordHash<kit::AppleServiceStatus::Incident> {};
template <>
struct std::hash<kit::AppleServiceStatus::Service>
    : kit::RecordHash<kit::AppleServiceStatus::Service> {};
template <>
struct std::hash<kit::AppleServiceStatus::Report>
    : kit::RecordHash<kit::AppleServiceStatus::Report> {};
template <>
struct std::hash<kit::AppleServiceStatus> : kit::RecordHash<kit::AppleServiceStatus> {};
