#include <chrono>
#include <string>

#include <fmt/format.h>

#include "NewsroomKit/Sources/SourceJSON.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/SourceText.h"
#include "Tarnwick_Brell/CommandLine/SourcesActions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"

namespace cli {

namespace {

using kit::NewsSource;

std::string statusText(const NewsSource& source, const app::SourceStatus& status,
                       const app::SourceHealth& health, kit::Instant now) {
    if (status.lastError) return "failing";
    if (!status.lastSuccess) return "never fetched";
    const bool isNoneOfApple = source.onlyApple && status.storyCount == 0;
    return fmt::format("{}, {}",
                       isNoneOfApple ? "no stories about Apple"
                                     : storyCountText(status.storyCount, health.collapsed),
                       agoText(*status.lastSuccess, now));
}

int listAsJSON(Session& session, app::LocalStore& store, const app::SourceRegistry& registry) {
    auto statuses = store.sources().statuses();
    auto healths = store.sources().healths();
    const auto options = store.sources().options();
    boost::json::array list;
    for (const auto& source : registry.sources()) {
        auto record = kit::encode(source).get_object();
        const auto set = options.find(source.id);
        record["notInAll"] = set != options.end() && set->second.notInAll;
        record["enabled"] = registry.isEnabled(source);
        record["status"] = kit::encode(statuses[source.id]);
        record["collapsed"] = healths[source.id].collapsed;
        list.push_back(std::move(record));
    }
    session.out().line(boost::json::serialize(list));
    return kDone;
}

}  // namespace

int listSources(Session& session) {
    auto& store = session.storeForReading();
    const app::SourceRegistry registry(store.sources());
    if (session.options().json) return listAsJSON(session, store, registry);
    auto statuses = store.sources().statuses();
    auto healths = store.sources().healths();
    TextTable table({Column::cut("source", 14), Column::whole("id"), Column::whole(""),
                     Column::whole("last fetch").dropped(1)});
    const NewsSource* previous = nullptr;
    for (const auto& source : registry.sources()) {
        if (!previous || previous->category != source.category) {
            table.begin(std::string(label(source.category)));
        }
        previous = &source;
        const auto& status = statuses[source.id];
        table.add({printable(source.name), source.id, registry.isEnabled(source) ? "on" : "off",
                   statusText(source, status, healths[source.id], session.now())});
        if (status.lastError) table.addNote(printable(*status.lastError));
    }
    table.print(session.out());
    return kDone;
}

}  // namespace cli
