#include "Tarnwick_Brell/CommandLine/StatusText.h"

#include <algorithm>
#include <string>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::Instant;
using Incident = kit::StatusContent::Incident;

std::string verdict(kit::StatusFeed audience, std::size_t all, std::size_t inTrouble) {
    const std::string_view whose =
        audience == kit::StatusFeed::developer ? "developer" : "consumer";
    if (inTrouble == 0) return fmt::format("All {} {} services are up.", all, whose);
    return fmt::format("{} of {} {} services {}.", inTrouble, all, whose,
                       inTrouble == 1 ? "has a problem" : "have problems");
}

void addIncident(TextTable& table, const Incident& incident) {
    table.add({printable(incident.service), std::string(rawValue(incident.level)),
               incident.started ? momentText(*incident.started) : "not known",
               incident.lasted ? spanText(*incident.lasted) : ""});
    auto note = printable(incident.message);
    if (incident.usersAffected)
        note += (note.empty() ? "" : " ") + printable(*incident.usersAffected) + ".";
    if (!note.empty()) table.addNote(note);
}

/// Apple's end may be one that was planned and missed.
std::string lastedText(const app::LoggedIncident& incident, Instant began) {
    if (!incident.endedSeen) return "ongoing";
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

void printStatus(Output& out, kit::StatusFeed audience, const kit::StatusContent& content) {
    const auto& tally =
        audience == kit::StatusFeed::developer ? content.developer : content.consumer;
    out.line(out.bold(verdict(audience, tally->all, tally->all - tally->up)));
    if (content.ongoing.empty()) return;
    out.line();
    TextTable table({Column::cut("service"), Column::cut("what", 12),
                     Column::whole("since").dropped(1), Column::whole("for")});
    for (const auto& incident : content.ongoing) addIncident(table, incident);
    table.print(out);
}

void printRecentIncidents(Output& out, const kit::StatusContent& content) {
    out.line();
    if (content.recent.empty()) {
        out.line("No incident of the last 14 days has ended.");
        return;
    }
    out.line(out.bold("The last 14 days"));
    TextTable table({Column::cut("service"), Column::cut("what", 12), Column::whole("began"),
                     Column::whole("lasted").dropped(1)});
    for (const auto& incident : content.recent) addIncident(table, incident);
    table.print(out);
}

void printIncidentLog(Output& out, const std::vector<app::LoggedIncident>& incidents) {
    if (incidents.empty()) {
        out.line("The log has no such incident.");
        return;
    }
    TextTable table({Column::cut("service"), Column::cut("what", 12), Column::whole("began"),
                     Column::whole("lasted").dropped(1)});
    for (const auto& incident : incidents) {
        const auto began = incident.started.value_or(incident.firstSeen);
        table.add({printable(incident.service),
                   std::string(rawValue(kit::problemLevel(incident.kind))), momentText(began),
                   lastedText(incident, began)});
        const auto message = printable(incident.message);
        if (!message.empty()) table.addNote(message);
        table.addNote(seenText(incident));
    }
    table.print(out);
}

}  // namespace cli
