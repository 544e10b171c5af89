#include "Tarnwick_Brell/Storage/Histories/IncidentLog.h"

#include <map>
#include <set>

#include "NewsroomKit/Trackers/Status/ServiceSignals.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

using kit::AppleServiceStatus;
using kit::Instant;
using kit::StatusFeed;

namespace {

using Reports = std::map<std::string, AppleServiceStatus::Report>;

/// The services' incidents by id; of several with one id, the first.
struct Answer {
    explicit Answer(const AppleServiceStatus::Services& all) {
        for (const auto& service : all) {
            for (const auto& incident : service.events) {
                const AppleServiceStatus::Report report{service.name, incident};
                (incident.isOngoing() ? ongoing : others).emplace(report.id(), report);
            }
        }
    }

    Reports ongoing;
    Reports others;
};

struct UnderWay {
    std::int64_t number;
    std::string report;
};

std::vector<UnderWay> underWay(Database& database, StatusFeed audience) {
    Statement rows(database,
                   "SELECT number, report FROM serviceIncidents "
                   "WHERE audience = ? AND endedSeen IS NULL");
    rows.bind(0, rawValue(audience));
    std::vector<UnderWay> found;
    while (rows.step()) found.push_back({rows.number(0), rows.text(1)});
    return found;
}

std::set<std::string> logged(Database& database, StatusFeed audience) {
    Statement rows(database, "SELECT DISTINCT report FROM serviceIncidents WHERE audience = ?");
    rows.bind(0, rawValue(audience));
    std::set<std::string> found;
    while (rows.step()) found.insert(rows.text(0));
    return found;
}

void add(Database& database, StatusFeed audience, const std::string& id,
         const AppleServiceStatus::Report& report, Instant now) {
    const auto& incident = report.incident;
    Statement put(database,
                  "INSERT INTO serviceIncidents (audience, service, report, kind, message, "
                  "started, ended, firstSeen, lastSeen, endedSeen) "
                  "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?8, ?9)");
    put.bind(0, rawValue(audience)).bind(1, report.service).bind(2, id);
    put.bind(3, incident.kind).bind(4, incident.message);
    put.bind(5, microseconds(incident.started)).bind(6, microseconds(incident.ended));
    put.bind(7, microseconds(now));
    put.bind(8, incident.isOngoing() ? std::nullopt : std::optional(microseconds(now)));
    put.run();
}

/// Updates the entry: Apple changes a message as it learns more.
void seeAgain(Database& database, std::int64_t number, const AppleServiceStatus::Incident& incident,
              Instant now) {
    Statement update(database,
                     "UPDATE serviceIncidents SET kind = ?2, message = ?3, ended = ?4, "
                     "lastSeen = ?5 WHERE number = ?1");
    update.bind(0, number).bind(1, incident.kind).bind(2, incident.message);
    update.bind(3, microseconds(incident.ended)).bind(4, microseconds(now));
    update.run();
}

void end(Database& database, std::int64_t number, const std::optional<Instant>& ended,
         Instant now) {
    Statement update(database,
                     "UPDATE serviceIncidents SET ended = coalesce(?2, ended), endedSeen = ?3 "
                     "WHERE number = ?1");
    update.bind(0, number).bind(1, microseconds(ended)).bind(2, microseconds(now));
    update.run();
}

/// For LIKE, with "\" as the escape.
std::string containing(std::string_view text) {
    std::string pattern = "%";
    for (const char c : text) {
        if (c == '%' || c == '_' || c == '\\') pattern += '\\';
        pattern += c;
    }
    return pattern += "%";
}

}  // namespace

void IncidentLog::record(StatusFeed audience, const AppleServiceStatus::Services& services,
                         Instant now) {
    Answer answer(services);
    const auto known =
        answer.others.empty() ? std::set<std::string>() : logged(database_, audience);
    // 1. Continue or end the incidents under way.
    for (const auto& entry : underWay(database_, audience)) {
        if (const auto goesOn = answer.ongoing.extract(entry.report)) {
            seeAgain(database_, entry.number, goesOn.mapped().incident, now);
        } else {
            const auto other = answer.others.find(entry.report);
            end(database_, entry.number,
                other == answer.others.end() ? std::nullopt : other->second.incident.ended, now);
        }
    }
    // 2. Begin other ongoing incidents, also ones that have recurred.
    for (const auto& [id, report] : answer.ongoing) add(database_, audience, id, report, now);
    // 3. Record incidents that began and ended unseen.
    for (const auto& [id, report] : answer.others) {
        if (isOver(report.incident, now) && !known.contains(id)) {
            add(database_, audience, id, report, now);
        }
    }
}

std::vector<LoggedIncident> IncidentLog::find(std::string_view text, std::size_t most) {
    const auto pattern = containing(text);
    Statement rows(database_,
                   "SELECT audience, service, report, kind, message, started, ended, firstSeen, "
                   "lastSeen, endedSeen FROM serviceIncidents "
                   "WHERE service LIKE ?1 ESCAPE '\\' OR message LIKE ?1 ESCAPE '\\' "
                   "ORDER BY firstSeen DESC, started DESC, number DESC LIMIT ?2");
    rows.bind(0, pattern).bind(1, static_cast<std::int64_t>(most));
    std::vector<LoggedIncident> found;
    while (rows.step()) {
        found.push_back(
            {.audience = kit::enumFromRaw<StatusFeed>(rows.text(0)).value_or(StatusFeed::consumer),
             .service = rows.text(1),
             .report = rows.text(2),
             .kind = rows.text(3),
             .message = rows.text(4),
             .started = instantOf(rows.optionalNumber(5)),
             .ended = instantOf(rows.optionalNumber(6)),
             .firstSeen = instantOf(rows.number(7)),
             .lastSeen = instantOf(rows.number(8)),
             .endedSeen = instantOf(rows.optionalNumber(9))});
    }
    return found;
}

}  // namespace app
