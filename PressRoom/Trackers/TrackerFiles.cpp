#include "PressRoom/Trackers/TrackerFiles.h"

#include <algorithm>
#include <functional>
#include <set>
#include <tuple>

namespace kit {

using namespace pressroom;

template <>
struct JSONFields<WorldIncidentState> {
    static constexpr auto fields = std::tuple{field("minutesAgo", &WorldIncidentState::minutesAgo),
                                              field("status", &WorldIncidentState::status),
                                              field("message", &WorldIncidentState::message)};
};

template <>
struct JSONFields<WorldIncident> {
    static constexpr auto fields = std::tuple{
        field("kind", &WorldIncident::kind), field("usersAffected", &WorldIncident::usersAffected),
        field("startedMinutesAgo", &WorldIncident::startedMinutesAgo),
        field("states", &WorldIncident::states)};
};

template <>
struct JSONFields<WorldService> {
    static constexpr auto fields =
        std::tuple{field("name", &WorldService::name), field("page", &WorldService::page),
                   field("incidents", &WorldService::incidents)};
};

template <>
struct JSONFields<WorldStatus> {
    static constexpr auto fields = std::tuple{field("services", &WorldStatus::services)};
};

template <>
struct JSONFields<WorldBuild> {
    static constexpr auto fields =
        std::tuple{field("minutesAgo", &WorldBuild::minutesAgo),
                   field("publishedMinutesAgo", &WorldBuild::publishedMinutesAgo),
                   field("version", &WorldBuild::version),
                   field("stage", &WorldBuild::stage),
                   field("build", &WorldBuild::build),
                   field("title", &WorldBuild::title),
                   field("url", &WorldBuild::url),
                   field("artwork", &WorldBuild::artwork)};
};

template <>
struct JSONFields<WorldPlatform> {
    static constexpr auto fields =
        std::tuple{field("platform", &WorldPlatform::platform),
                   field("public", &WorldPlatform::general), field("beta", &WorldPlatform::beta)};
};

template <>
struct JSONFields<WorldReleases> {
    static constexpr auto fields = std::tuple{field("systems", &WorldReleases::systems)};
};

template <>
struct JSONFields<WorldEventState> {
    static constexpr auto fields = std::tuple{field("minutesAgo", &WorldEventState::minutesAgo),
                                              field("status", &WorldEventState::status)};
};

template <>
struct JSONFields<WorldEvent> {
    static constexpr auto fields =
        std::tuple{field("id", &WorldEvent::id),
                   field("title", &WorldEvent::title),
                   field("startsMinutesAgo", &WorldEvent::startsMinutesAgo),
                   field("pacificHour", &WorldEvent::pacificHour),
                   field("window", &WorldEvent::window),
                   field("source", &WorldEvent::source),
                   field("publisher", &WorldEvent::publisher),
                   field("states", &WorldEvent::states)};
};

template <>
struct JSONFields<WorldCalendar> {
    static constexpr auto fields = std::tuple{field("events", &WorldCalendar::events)};
};

template <>
struct JSONFields<WorldPriceStep> {
    static constexpr auto fields = std::tuple{field("minute", &WorldPriceStep::minute),
                                              field("until", &WorldPriceStep::until),
                                              field("factor", &WorldPriceStep::factor),
                                              field("split", &WorldPriceStep::split),
                                              field("currency", &WorldPriceStep::currency),
                                              field("stale", &WorldPriceStep::stale),
                                              field("minutesAhead", &WorldPriceStep::minutesAhead)};
};

template <>
struct JSONFields<WorldQuote> {
    static constexpr auto fields =
        std::tuple{field("symbol", &WorldQuote::symbol),
                   field("name", &WorldQuote::name),
                   field("group", &WorldQuote::group),
                   field("relation", &WorldQuote::relation),
                   field("currency", &WorldQuote::currency),
                   field("market", &WorldQuote::market),
                   field("price", &WorldQuote::price),
                   field("dailySwing", &WorldQuote::dailySwing),
                   field("dailyVolume", &WorldQuote::dailyVolume),
                   field("withoutPreviousClose", &WorldQuote::withoutPreviousClose),
                   field("stale", &WorldQuote::stale),
                   field("steps", &WorldQuote::steps)};
};

template <>
struct JSONFields<WorldBoard> {
    static constexpr auto fields = std::tuple{field("quotes", &WorldBoard::quotes)};
};

}  // namespace kit

namespace pressroom {
namespace {

using kit::RecordError;

/// Checks that no two items have the same `name` and runs `check` on each, under a path such as
/// "services[3]".
template <class Item, class Check>
void checkEach(const std::string& key, const std::vector<Item>& items, std::string Item::* name,
               Check check) {
    std::set<std::string> names;
    for (std::size_t i = 0; i < items.size(); ++i) {
        inside(key + "[" + std::to_string(i) + "]", [&] {
            if (!names.insert(items[i].*name).second) {
                throw RecordError("", "\"" + items[i].*name + "\" is listed twice");
            }
            check(items[i]);
        });
    }
}

template <class State>
void requireOldestFirst(const std::string& key, const std::vector<State>& states) {
    if (states.empty()) throw RecordError(key, "the list is empty");
    if (!std::ranges::is_sorted(states, std::greater{}, &State::minutesAgo)) {
        throw RecordError(key, "the oldest must come first");
    }
}

void checkStatus(const WorldStatus& status) {
    checkEach("services", status.services, &WorldService::name, [](const WorldService& service) {
        if (!service.incidents) return;
        for (const auto& incident : *service.incidents) {
            inside("incidents", [&] { requireOldestFirst("states", incident.states); });
        }
    });
}

void checkBuilds(const std::string& channel, const std::optional<std::vector<WorldBuild>>& builds) {
    if (!builds) return;
    requireOldestFirst(channel, *builds);
    for (const auto& build : *builds) {
        if (!isWebAddress(build.url))
            throw RecordError(channel, build.url + " is not an https address");
    }
}

void checkReleases(const WorldReleases& releases) {
    checkEach("systems", releases.systems, &WorldPlatform::platform, [](const WorldPlatform& one) {
        if (!one.general && !one.beta) throw RecordError("", "neither \"public\" nor \"beta\"");
        checkBuilds("public", one.general);
        checkBuilds("beta", one.beta);
    });
}

void checkCalendar(const WorldCalendar& calendar) {
    checkEach("events", calendar.events, &WorldEvent::id,
              [](const WorldEvent& event) { requireOldestFirst("states", event.states); });
}

void checkBoard(const WorldBoard& board) {
    checkEach("quotes", board.quotes, &WorldQuote::symbol, [](const WorldQuote& quote) {
        if (!(quote.price > 0)) throw RecordError("price", "not above zero");
        if (quote.group.has_value() != quote.relation.has_value()) {
            throw RecordError("relation", "goes with \"group\", and only with it");
        }
        for (const auto& step : quote.steps.value_or(std::vector<WorldPriceStep>())) {
            if (step.split && !(*step.split > 0)) throw RecordError("steps", "a split of nothing");
        }
    });
}

}  // namespace

TrackerFiles readTrackers(const std::filesystem::path& directory) {
    const auto folder = directory / "trackers";
    return {.consumer = readDataFile<WorldStatus>(folder / "status.json", checkStatus),
            .developer = readDataFile<WorldStatus>(folder / "developer-status.json", checkStatus),
            .releases = readDataFile<WorldReleases>(folder / "releases.json", checkReleases),
            .calendar = readDataFile<WorldCalendar>(folder / "events.json", checkCalendar),
            .board = readDataFile<WorldBoard>(folder / "quotes.json", checkBoard)};
}

}  // namespace pressroom
