#include "NewsroomKit/Trackers/Status/ServiceSignals.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <string>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Trackers/Status/AppleStatusAPI.h"

namespace kit {

namespace {

/// One step of an incident.
enum class IncidentStep { began, ended, passed };

/// What a signal is made of, in answers and in the history alike.
struct IncidentFacts {
    StatusFeed audience{};
    std::string report{};
    std::string service{};
    ProblemLevel level{};
    std::string message{};
    std::optional<Instant> started{};
    std::optional<Instant> ended{};
    bool goesOn = false;  ///< the service has another problem
};

SignalEvent eventOf(IncidentStep step, ProblemLevel level) {
    if (step == IncidentStep::passed) return SignalEvent::servicePastProblem;
    if (level == ProblemLevel::maintenance) return SignalEvent::serviceMaintenance;
    if (step == IncidentStep::ended) return SignalEvent::serviceRestored;
    return level == ProblemLevel::outage ? SignalEvent::serviceOutage : SignalEvent::serviceIssue;
}

std::string_view rawStep(IncidentStep step) {
    switch (step) {
        case IncidentStep::began: return "began";
        case IncidentStep::ended: return "ended";
        case IncidentStep::passed: return "passed";
    }
    return "";
}

std::string_view nounOf(ProblemLevel level) {
    switch (level) {
        case ProblemLevel::issue: return "a problem";
        case ProblemLevel::outage: return "an outage";
        case ProblemLevel::maintenance: return "maintenance";
    }
    return "a problem";
}

/// " after 22 min", in one unit; empty when a time is missing.
std::string duration(std::string_view preposition, const IncidentFacts& facts) {
    if (!facts.started || !facts.ended || *facts.ended < *facts.started) return "";
    const auto span = *facts.ended - *facts.started;
    const auto minutes = std::chrono::round<std::chrono::minutes>(span).count();
    auto text = minutes == 0 ? std::string("a moment") : std::to_string(minutes) + " min";
    if (minutes >= 48 * 60) {
        text = std::to_string(minutes / (24 * 60)) + " days";
    } else if (minutes >= 120) {
        text = std::to_string(minutes / 60) + " h";
    }
    return " " + std::string(preposition) + " " + text;
}

std::string titleOf(IncidentStep step, const IncidentFacts& facts) {
    const std::string noun(nounOf(facts.level));
    switch (step) {
        case IncidentStep::began:
            return facts.service +
                   (facts.level == ProblemLevel::maintenance ? " is under " : " has ") + noun;
        case IncidentStep::ended:
            if (facts.goesOn) return "One of several problems of " + facts.service + " is over";
            return facts.service + " works again" + duration("after", facts);
        case IncidentStep::passed: return facts.service + " had " + noun + duration("for", facts);
    }
    return facts.service;
}

Signal signalOf(IncidentStep step, const IncidentFacts& facts, Instant now) {
    auto signal = signalOf(eventOf(step, facts.level));
    signal.id = "service|" + facts.report + "|" + std::string(rawStep(step));
    // A problem can return on another day; one that is over can only be listed again.
    if (step != IncidentStep::passed) signal.id += "|" + signalDay(now);
    signal.subject = facts.service;
    signal.title = titleOf(step, facts);
    signal.detail = facts.message;
    signal.link = std::string(AppleStatusAPI::kPage);
    signal.happenedAt = step == IncidentStep::ended ? facts.ended : facts.started;
    signal.seenAt = now;
    signal.evidence = {{"level", rawValue(facts.level)},
                       {"readAt", AppleStatusAPI::address(facts.audience)}};
    if (facts.started) signal.evidence["started"] = secondsSince1970(*facts.started);
    if (facts.ended) signal.evidence["ended"] = secondsSince1970(*facts.ended);
    return signal;
}

/// The incidents of an answer by their reports' ids; of several with one id, the first.
struct IncidentsByReport {
    using Reports = std::map<std::string, AppleServiceStatus::Report>;

    explicit IncidentsByReport(const AppleServiceStatus::Services& services) {
        for (const auto& service : services) {
            for (const auto& incident : service.events) {
                const AppleServiceStatus::Report report{service.name, incident};
                (incident.isOngoing() ? ongoing : others).emplace(report.id(), report);
            }
        }
    }

    bool hasOngoing(const std::string& service) const {
        return std::ranges::any_of(
            ongoing, [&](const auto& entry) { return entry.second.service == service; });
    }

    Reports ongoing;
    Reports others;
};

IncidentFacts factsOf(StatusFeed audience, const std::string& id,
                      const AppleServiceStatus::Report& report) {
    const auto& incident = report.incident;
    return {.audience = audience,
            .report = id,
            .service = report.service,
            .level = problemLevel(incident.kind),
            .message = incident.message,
            .started = incident.started,
            .ended = incident.ended};
}

IncidentFacts factsOf(const LoggedIncident& logged) {
    return {.audience = logged.audience,
            .report = logged.report,
            .service = logged.service,
            .level = problemLevel(logged.kind),
            .message = logged.message,
            .started = logged.started,
            .ended = logged.ended};
}

bool isUnderWay(const LoggedIncident& logged, Instant then) {
    return logged.firstSeen <= then && (!logged.endedSeen || *logged.endedSeen > then);
}

}  // namespace

bool isOver(const AppleServiceStatus::Incident& incident, Instant now) {
    return (incident.ended && *incident.ended <= now) ||
           equalsLowercase(incident.status, "resolved") ||
           equalsLowercase(incident.status, "completed");
}

std::vector<Signal> signalsOf(const std::optional<AppleServiceStatus::Services>& before,
                              const AppleServiceStatus::Services& after, StatusFeed audience,
                              Instant now) {
    std::vector<Signal> found;
    if (!before) return found;
    const IncidentsByReport were(*before), are(after);
    // 1. What ended.
    for (const auto& [id, report] : were.ongoing) {
        if (are.ongoing.contains(id)) continue;
        const auto other = are.others.find(id);
        auto facts = factsOf(audience, id, other == are.others.end() ? report : other->second);
        facts.goesOn = are.hasOngoing(report.service);
        found.push_back(signalOf(IncidentStep::ended, facts, now));
    }
    // 2. What began.
    for (const auto& [id, report] : are.ongoing) {
        if (were.ongoing.contains(id)) continue;
        found.push_back(signalOf(IncidentStep::began, factsOf(audience, id, report), now));
    }
    // 3. What came and went unseen.
    for (const auto& [id, report] : are.others) {
        const bool isKnown = were.ongoing.contains(id) || were.others.contains(id);
        const bool isNewService = std::ranges::none_of(
            *before, [&](const auto& service) { return service.name == report.service; });
        if (isKnown || isNewService || !isOver(report.incident, now)) continue;
        found.push_back(signalOf(IncidentStep::passed, factsOf(audience, id, report), now));
    }
    return found;
}

std::vector<Signal> pastSignals(std::span<const LoggedIncident> incidents) {
    std::vector<Signal> found;
    for (const auto& logged : incidents) {
        auto facts = factsOf(logged);
        if (logged.endedSeen == logged.firstSeen) {
            found.push_back(signalOf(IncidentStep::passed, facts, logged.firstSeen));
            continue;
        }
        auto atFirst = facts;
        atFirst.ended.reset();
        found.push_back(signalOf(IncidentStep::began, atFirst, logged.firstSeen));
        if (!logged.endedSeen) continue;
        facts.goesOn = std::ranges::any_of(incidents, [&](const LoggedIncident& other) {
            return &other != &logged && other.service == logged.service &&
                   isUnderWay(other, *logged.endedSeen);
        });
        found.push_back(signalOf(IncidentStep::ended, facts, *logged.endedSeen));
    }
    return found;
}

}  // namespace kit
