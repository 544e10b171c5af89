#include "Tarnwick_Brell/CommandLine/StatusText.h"

#include <algorithm>
#include <string>

#include <fmt/format.h>

#include "NewsroomKit/Panels/StatusContent.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::AppleServiceStatus;
using kit::Instant;
using Services = AppleServiceStatus::Services;
using Incident = AppleServiceStatus::Incident;

std::string verdict(kit::StatusFeed audience, std::size_t all, std::size_t inTrouble) {
    const std::string_view whose =
        audience == kit::StatusFeed::developer ? "developer" : "consumer";
    if (inTrouble == 0) return fmt::format("All {} {} services are up.", all, whose);
    return fmt::format("{} of {} {} services {}.", inTrouble, all, whose,
                       inTrouble == 1 ? "has a problem" : "have problems");
}

std::string sinceText(const Incident& incident) {
    return incident.started ? momentText(*incident.started) : "not said";
}

std::string levelText(const std::string& kind) {
    return std::string(rawValue(kit::problemLevel(kind)));
}

std::string lastedText(const Incident& incident, Instant now) {
    const auto span = kit::lasted(incident, now);
    return span ? spanText(*span) : "";
}

void addNotes(TextTable& table, const Incident& incident) {
    auto note = printable(incident.message);
    if (incident.usersAffected) {
        note += (note.empty() ? "" : " ") + printable(*incident.usersAffected) + ".";
    }
    if (!note.empty()) table.addNote(note);
}

/// Apple's end may be one that was planned and missed.
std::string lastedText(const app::LoggedIncident& incident, Instant began) {
    if (!incident.endedSeen) return "goes on";
    const auto end = std::min(incident.ended.value_or(*incident.endedSeen), *incident.endedSeen);
    return spanText(std::max(end - began, Instant::duration(0)));
}

/// When the desk itself saw it.
std::string seenText(const app::LoggedIncident& incident) {
    const auto first = momentText(incident.firstSeen);
    if (!incident.endedSeen) return "Seen since " + first + ".";
    if (*incident.endedSeen == incident.firstSeen) return "Over when first seen, " + first + ".";
    return "Seen from " + first + " to " + momentText(*incident.endedSeen) + ".";
}

}  // namespace

void printStatus(Output& out, kit::StatusFeed audience, const Services& services, Instant now) {
    const auto reports = AppleServiceStatus::ongoingReports(services);
    out.line(out.bold(verdict(audience, services.size(), reports.size())));
    if (reports.empty()) return;
    out.line();
    TextTable table({Column::cut("service"), Column::cut("what", 12),
                     Column::whole("since").dropped(1), Column::whole("for")});
    for (const auto& service : services) {
        for (const auto& incident : service.events) {
            if (!incident.isOngoing()) continue;
            table.add({printable(service.name), levelText(incident.kind), sinceText(incident),
                       lastedText(incident, now)});
            addNotes(table, incident);
        }
    }
    table.print(out);
}

void printRecentIncidents(Output& out, const Services& services, Instant now) {
    const auto reports = AppleServiceStatus::recentReports(now - kit::kRecentIncidents, services);
    out.line();
    if (reports.empty()) {
        out.line("Nothing is over that began in the last 14 days.");
        return;
    }
    out.line(out.bold("The last 14 days"));
    TextTable table({Column::cut("service"), Column::cut("what", 12), Column::whole("began"),
                     Column::whole("lasted").dropped(2), Column::whole("").dropped(1)});
    for (const auto& [service, incident] : reports) {
        const bool isToCome = incident.started && *incident.started > now;
        table.add({printable(service), levelText(incident.kind), sinceText(incident),
                   isToCome ? agoText(*incident.started, now) : lastedText(incident, now),
                   printable(incident.status)});
        addNotes(table, incident);
    }
    table.print(out);
}

void printIncidentLog(Output& out, const std::vector<app::LoggedIncident>& incidents) {
    if (incidents.empty()) {
        out.line("The log has no such trouble.");
        return;
    }
    TextTable table({Column::cut("service"), Column::cut("what", 12), Column::whole("began"),
                     Column::whole("lasted").dropped(1)});
    for (const auto& incident : incidents) {
        const auto began = incident.started.value_or(incident.firstSeen);
        table.add({printable(incident.service), levelText(incident.kind), momentText(began),
                   lastedText(incident, began)});
        const auto message = printable(incident.message);
        if (!message.empty()) table.addNote(message);
        table.addNote(seenText(incident));
    }
    table.print(out);
}

}  // namespace cli
