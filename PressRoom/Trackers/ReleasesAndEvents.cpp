#include "PressRoom/Trackers/WireService.h"

#include "PressRoom/Trackers/WorldTime.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using std::chrono::sys_seconds;

json::object release(const WorldBuild& build, sys_seconds anchor) {
    const auto published = worldTime(anchor, build.publishedMinutesAgo.value_or(build.minutesAgo));
    json::object release{{"version", build.version},
                         {"stage", build.stage},
                         {"build", build.build},
                         {"title", build.title},
                         {"published", isoDate(published, "Z")},
                         {"url", build.url}};
    if (build.artwork) release["artwork"] = *build.artwork;
    return release;
}

sys_seconds start(const WorldEvent& event, sys_seconds anchor) {
    using namespace std::chrono;
    const auto instant = worldTime(anchor, event.startsMinutesAgo);
    if (!event.pacificHour) return instant;
    const auto offset = americanOffset(instant, kPacificStandard);
    return floor<days>(instant + offset) - offset +
           seconds(std::llround(*event.pacificHour * 3600));
}

}  // namespace

json::object releases(const WorldReleases& releases, sys_seconds anchor, sys_seconds now) {
    json::object systems;
    for (const auto& system : releases.systems) {
        json::object channels;
        for (const auto& [name, builds] :
             {std::pair("public", &system.general), {"beta", &system.beta}}) {
            const auto* build = *builds ? stateAt(**builds, anchor, now) : nullptr;
            if (build != nullptr) channels[name] = release(*build, anchor);
        }
        systems[system.platform] = std::move(channels);
    }
    return {{"systems", std::move(systems)}};
}

json::object events(const WorldCalendar& calendar, sys_seconds anchor, sys_seconds now) {
    json::array list;
    for (const auto& event : calendar.events) {
        const auto* state = stateAt(event.states, anchor, now);
        if (state == nullptr) continue;
        list.push_back(json::object{{"id", event.id},
                                    {"title", event.title},
                                    {"starts", isoDate(start(event, anchor), "Z")},
                                    {"window", event.window},
                                    {"status", state->status},
                                    {"source", event.source},
                                    {"publisher", event.publisher}});
    }
    return {{"events", std::move(list)}};
}

}  // namespace pressroom
