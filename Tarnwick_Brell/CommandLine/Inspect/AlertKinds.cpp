#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "NewsroomKit/Alerts/Rehearsal.h"
#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

namespace {

/// Only what rules look at has to be given.
kit::Signal signalIn(json::object given, kit::Instant at) {
    const auto complete = [&](std::string_view key, json::value value) {
        if (const auto* known = given.if_contains(key); !known || known->is_null())
            given[key] = std::move(value);
    };
    complete("detail", "");
    complete("dayOnly", false);
    complete("seenAt", kit::encode(at));
    complete("evidence", json::object());
    return kit::decode<kit::Signal>(given);
}

kit::AlertEvent eventIn(const json::value& value) {
    if (!value.is_object()) throw kit::RecordError("", "an object is expected");
    const auto& object = value.get_object();
    kit::AlertEvent event{.at = required<kit::Instant>(object, "at")};
    event.arrival =
        optional<kit::AlertArrival>(object, "arrival").value_or(kit::AlertArrival::news);
    if (auto story = optional<kit::Story>(object, "story")) {
        event.subject = *std::move(story);
    } else {
        try {
            event.subject = signalIn(required<json::object>(object, "signal"), event.at);
        } catch (const kit::RecordError& error) {
            throw error.path() == "signal" ? error : error.inside("signal");
        }
    }
    return event;
}

std::vector<kit::AlertEvent> alertEventsIn(const json::object& input) {
    const auto* given = input.if_contains("events");
    if (!given || !given->is_array()) throw kit::RecordError("events", "a list is expected");
    std::vector<kit::AlertEvent> events;
    for (const auto& value : given->get_array()) {
        try {
            events.push_back(eventIn(value));
        } catch (const kit::RecordError& error) {
            throw error.inside("events[" + std::to_string(events.size()) + "]");
        }
    }
    return events;
}

/// The rule, which must be one that events alone are enough for.
kit::AlertRule eventRuleIn(const json::object& input) {
    auto rule = required<kit::AlertRule>(input, "rule");
    const auto* stories = std::get_if<kit::StoriesTrigger>(&rule.trigger);
    if (stories && stories->beat)
        throw kit::RecordError("rule.trigger.beat", "a query is expected, there are no beats here");
    if (std::holds_alternative<kit::PriceTrigger>(rule.trigger))
        throw kit::RecordError("rule.trigger.kind", "stories or signals are expected");
    return rule;
}

std::vector<kit::StoryCluster> clustersOf(const std::vector<kit::AlertEvent>& events) {
    std::vector<kit::Story> stories;
    for (const auto& event : events) {
        if (const auto* story = std::get_if<kit::Story>(&event.subject)) stories.push_back(*story);
    }
    kit::StoryClusterer clusterer(kit::WordMemory::of(stories));
    clusterer.add(stories);
    return clusterer.clusters();
}

using Places = std::map<std::string, std::size_t>;

json::object tellingRecord(const kit::AlertTelling& telling, const Places& places) {
    json::array events;
    for (const auto& match : telling.matches) events.push_back(places.at(match.event));
    json::object record{{"at", kit::encode(telling.at, DateStyle::secondsSince1970)},
                        {"how", kit::encode(telling.how)},
                        {"events", std::move(events)}};
    if (telling.how != kit::AlertTelling::How::summary)
        record["words"] = kit::encode(telling.matches.front().words);
    return record;
}

json::object heldRecord(const kit::HeldAlert& held, const Places& places) {
    return {{"event", places.at(held.match.event)},
            {"why", kit::encode(held.why)},
            {"until", kit::encode(held.until, DateStyle::secondsSince1970)}};
}

}  // namespace

json::object alert(const json::object& input) {
    const auto rule = eventRuleIn(input);
    const auto events = alertEventsIn(input);
    const kit::AlertQuiet quiet{.hours = optional<kit::QuietHours>(input, "quietHours"),
                                .until = optional<kit::Instant>(input, "quietUntil")};
    const auto last = events.empty() ? kit::Instant() : events.back().at;
    const auto until = optional<kit::Instant>(input, "until").value_or(last);
    const auto noBeat = [](const std::string&) { return std::optional<kit::StoryQuery>(); };
    const auto run = kit::runAlerts({rule}, noBeat, events, clustersOf(events), quiet, until);

    Places places;
    for (const auto& match : run.matches) places[match.match.event] = match.event;
    json::array told, held;
    for (const auto& telling : run.told) told.push_back(tellingRecord(telling, places));
    for (const auto& one : run.held) held.push_back(heldRecord(one, places));
    return {{"told", std::move(told)}, {"held", std::move(held)}};
}

}  // namespace cli::inspect
