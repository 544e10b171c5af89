#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {

/// The file as Apple writes it; times are milliseconds since 1970.
struct RawStatusEvent {
    std::optional<std::string> statusType{};
    std::optional<std::string> eventStatus{};
    std::optional<std::string> message{};
    std::optional<std::string> usersAffected{};
    std::optional<double> epochStartDate{};
    std::optional<double> epochEndDate{};
};

struct RawStatusService {
    std::string serviceName{};
    std::vector<RawStatusEvent> events{};
};

struct RawStatus {
    std::vector<RawStatusService> services{};
};

template <>
struct JSONFields<RawStatusEvent> {
    static constexpr auto fields = std::tuple{
        field("statusType", &RawStatusEvent::statusType),
        field("eventStatus", &RawStatusEvent::eventStatus),
        field("message", &RawStatusEvent::message),
        field("usersAffected", &RawStatusEvent::usersAffected),
        field("epochStartDate", &RawStatusEvent::epochStartDate),
        field("epochEndDate", &RawStatusEvent::epochEndDate),
    };
};

template <>
struct JSONFields<RawStatusService> {
    static constexpr auto fields = std::tuple{
        field("serviceName", &RawStatusService::serviceName),
        field("events", &RawStatusService::events),
    };
};

template <>
struct JSONFields<RawStatus> {
    static constexpr auto fields = std::tuple{field("services", &RawStatus::services)};
};

namespace {

using Incident = AppleServiceStatus::Incident;
using Report = AppleServiceStatus::Report;
using Services = AppleServiceStatus::Services;

constexpr double kMillisecondsPerSecond = 1000;

/// What stands between the outermost braces, so that the script's call around it is gone.
std::string_view withoutEnvelope(std::string_view body) {
    // 1. What is no text, or is the object itself, stays as it is.
    if (!isValidUTF8(body) || body.starts_with('{')) return body;
    // 2. So does what has no braces, or has them the wrong way round.
    const auto first = body.find('{');
    const auto last = body.rfind('}');
    if (first == body.npos || last == body.npos || last < first) return body;
    return body.substr(first, last - first + 1);
}

std::optional<double> secondsOf(const std::optional<double>& milliseconds) {
    return milliseconds ? std::optional(*milliseconds / kMillisecondsPerSecond) : std::nullopt;
}

std::optional<Instant> instantOf(const std::optional<double>& seconds) {
    return seconds ? instantFromSeconds(*seconds) : std::nullopt;
}

Incident incidentOf(RawStatusEvent raw) {
    const auto start = secondsOf(raw.epochStartDate);
    return {.kind = std::move(raw.statusType).value_or("Issue"),
            .status = std::move(raw.eventStatus).value_or("ongoing"),
            .message = std::move(raw.message).value_or(""),
            .usersAffected = std::move(raw.usersAffected),
            .started = instantOf(start),
            .ended = instantOf(secondsOf(raw.epochEndDate)),
            .exactStart = start};
}

Instant startOf(const Incident& incident) {
    return incident.started.value_or(AppleServiceStatus::kDistantPast);
}

}  // namespace

ProblemLevel problemLevel(std::string_view kind) {
    return enumFromRaw<ProblemLevel>(lowercasedASCII(kind)).value_or(ProblemLevel::issue);
}

std::string decimalSeconds(double seconds) {
    // Room for any number: up to 309 digits, or as many zeros before the digits of a tiny one.
    std::array<char, 400> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), seconds,
                                       std::chars_format::fixed);
    std::string text(buffer.data(), written.ptr);
    if (text.find('.') == text.npos) text += ".0";
    return text;
}

std::string decimalSeconds(Instant instant) { return decimalSeconds(secondsSince1970(instant)); }

std::string Report::id() const {
    if (incident.exactStart) return service + "|" + decimalSeconds(*incident.exactStart);
    return service + "|" +
           (incident.started ? decimalSeconds(*incident.started) : incident.message);
}

Services AppleServiceStatus::parse(std::string_view body) {
    auto raw = decode<RawStatus>(parseJSON(withoutEnvelope(body)));
    Services services;
    services.reserve(raw.services.size());
    for (auto& rawService : raw.services) {
        auto& service = services.emplace_back(Service{.name = std::move(rawService.serviceName)});
        service.events.reserve(rawService.events.size());
        for (auto& event : rawService.events)
            service.events.push_back(incidentOf(std::move(event)));
    }
    return services;
}

std::vector<Report> AppleServiceStatus::ongoingReports(const Services& services) {
    std::vector<Report> reports;
    for (const auto& service : services) {
        const auto first = std::ranges::find_if(service.events, &Incident::isOngoing);
        if (first != service.events.end()) reports.push_back({service.name, *first});
    }
    return reports;
}

std::vector<Report> AppleServiceStatus::recentReports(Instant cutOff, const Services& services) {
    std::vector<Report> reports;
    for (const auto& service : services) {
        for (const auto& incident : service.events) {
            if (incident.isOngoing() || startOf(incident) < cutOff) continue;
            reports.push_back({service.name, incident});
        }
    }
    std::ranges::stable_sort(reports, std::ranges::greater{},
                             [](const Report& report) { return startOf(report.incident); });
    return reports;
}

}  // namespace kit
