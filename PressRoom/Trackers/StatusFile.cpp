#include "PressRoom/Trackers/StatusFile.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "PressRoom/Trackers/WorldTime.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using std::chrono::sys_seconds;

/// "11/18/2026 03:06 PST"
std::string pacificMinute(sys_seconds instant) {
    const auto offset = americanOffset(instant, kPacificStandard);
    const auto local = std::chrono::system_clock::to_time_t(instant + offset);
    return fmt::format("{:%m/%d/%Y %H:%M} {}", fmt::gmtime(local),
                       offset == kPacificStandard ? "PST" : "PDT");
}

json::value milliseconds(std::optional<sys_seconds> instant) {
    return instant ? json::value(instant->time_since_epoch().count() * 1000) : json::value();
}

json::value minuteOrNull(std::optional<sys_seconds> instant) {
    return instant ? json::value(pacificMinute(*instant)) : json::value();
}

/// Whether the status says that the incident is over.
bool isOver(const std::optional<std::string>& status) {
    return status == "resolved" || status == "completed";
}

json::object event(const WorldIncident& incident, const WorldIncidentState& state,
                   sys_seconds anchor) {
    std::optional<sys_seconds> started, ended;
    if (incident.startedMinutesAgo) started = worldTime(anchor, *incident.startedMinutesAgo);
    if (isOver(state.status)) ended = worldTime(anchor, state.minutesAgo);
    json::object event;
    if (incident.usersAffected) event["usersAffected"] = *incident.usersAffected;
    if (started) event["epochStartDate"] = milliseconds(started);
    event["epochEndDate"] = milliseconds(ended);
    if (incident.kind) event["statusType"] = *incident.kind;
    event["datePosted"] = pacificMinute(worldTime(anchor, state.minutesAgo));
    event["startDate"] = minuteOrNull(started);
    event["endDate"] = minuteOrNull(ended);
    event["affectedServices"] = nullptr;
    if (state.status) event["eventStatus"] = *state.status;
    if (state.message) event["message"] = *state.message;
    return event;
}

}  // namespace

json::object statusFile(const WorldStatus& status, sys_seconds anchor, sys_seconds now) {
    json::array services;
    for (const auto& service : status.services) {
        json::array events;
        for (const auto& incident : service.incidents.value_or(std::vector<WorldIncident>{})) {
            if (const auto* state = stateAt(incident.states, anchor, now)) {
                events.push_back(event(incident, *state, anchor));
            }
        }
        services.push_back(
            json::object{{"serviceName", service.name},
                         {"redirectUrl", service.page ? json::value(*service.page) : json::value()},
                         {"events", std::move(events)}});
    }
    return {{"drpost", false}, {"drMessage", nullptr}, {"services", std::move(services)}};
}

}  // namespace pressroom
