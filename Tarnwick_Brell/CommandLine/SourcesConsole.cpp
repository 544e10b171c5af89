#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/SourceText.h"
#include "Tarnwick_Brell/CommandLine/SourcesActions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"
#include "Tarnwick_Brell/Desk/SourceSchedule.h"

namespace cli {

namespace {

using kit::Instant;
using kit::NewsSource;

/// The fetch statistics of one source.
struct ConsoleRow {
    const NewsSource& source;
    bool enabled = false;
    app::SourceStatus status{};
    app::SourceHealth health{};
    std::optional<Instant> pausedUntil{};
    std::optional<Instant> nextTry{};  ///< absent: with the next pass
};

std::vector<ConsoleRow> consoleRows(app::LocalStore& store, const app::SourceRegistry& registry,
                                    Instant now) {
    auto statuses = store.sources().statuses();
    auto healths = store.sources().healths();
    const auto pauses = store.hostPauses().load(now);
    std::vector<ConsoleRow> rows;
    for (const auto& source : registry.sources()) {
        rows.push_back({.source = source,
                        .enabled = registry.isEnabled(source),
                        .status = statuses[source.id],
                        .health = healths[source.id],
                        .pausedUntil = app::pauseOf(source, pauses, now),
                        .nextTry = app::nextTry(source, statuses[source.id], pauses, now)});
    }
    return rows;
}

std::string ageOr(const std::optional<Instant>& then, Instant now, std::string_view absent) {
    return then ? ageText(*then, now) : std::string(absent);
}

std::string sizeText(std::int64_t bytes) {
    const auto size = static_cast<double>(bytes);
    if (bytes < 1000) return fmt::format("{} B", bytes);
    if (bytes < 1'000'000) return fmt::format("{:.0f} KB", size / 1e3);
    return fmt::format("{:.1f} MB", size / 1e6);
}

std::string durationText(std::int64_t milliseconds) {
    if (milliseconds < 1000) return fmt::format("{} ms", milliseconds);
    return fmt::format("{:.1f} s", static_cast<double>(milliseconds) / 1e3);
}

std::string nextText(const std::optional<Instant>& next, Instant now) {
    if (!next) return "next pass";
    return fmt::format("in {} min", std::chrono::ceil<std::chrono::minutes>(*next - now).count());
}

std::string counted(std::int64_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

void addNotes(TextTable& table, const ConsoleRow& row) {
    const auto& [source, enabled, status, health, pausedUntil, nextTry] = row;
    if (status.lastError) {
        const auto since =
            health.failingSince ? " since " + momentText(*health.failingSince) : std::string();
        table.addNote(fmt::format("Failing{}: {}", since, printable(*status.lastError)));
    }
    if (pausedUntil) {
        table.addNote(
            fmt::format("Its server accepts requests again after {}.", momentText(*pausedUntil)));
    }
    if (health.movedTo) {
        table.addNote(fmt::format("Its feed has moved permanently to {}",
                                  printable(kit::maskedSecrets(*health.movedTo))));
    }
    if (health.collapsed > 0) {
        table.addNote(storyCountText(status.storyCount, health.collapsed) + ".");
    }
    if (health.collided > 0) {
        table.addNote(counted(health.collided, "story", "stories") +
                      " left out: another story has the same id.");
    }
}

void printTable(Session& session, const std::vector<ConsoleRow>& rows) {
    const auto now = session.now();
    TextTable table({Column::cut("source"), Column::whole("asked").dropped(2),
                     Column::whole("answered"), Column::whole("took").dropped(5),
                     Column::whole("size").dropped(4), Column::whole("stories").dropped(3),
                     Column::whole("newest").dropped(1), Column::whole("next try")});
    std::size_t on = 0, failing = 0;
    for (const auto& row : rows) {
        if (!row.enabled) continue;
        const auto& [source, enabled, status, health, pausedUntil, nextTry] = row;
        ++on;
        failing += status.lastError ? 1 : 0;
        table.add({printable(source.name), ageOr(status.lastAttempt, now, "never"),
                   ageOr(status.lastSuccess, now, "never"),
                   health.latency ? durationText(*health.latency) : "-",
                   health.bytes ? sizeText(*health.bytes) : "-",
                   status.lastSuccess ? std::to_string(status.storyCount) : "-",
                   ageOr(health.newestStory, now, "-"), nextText(nextTry, now)});
        addNotes(table, row);
    }
    table.print(session.out());
    session.out().line(
        fmt::format("\n{} on, {} of them failing; {} off.",
                    counted(static_cast<std::int64_t>(on), "source is", "sources are"),
                    failing == 0 ? "none" : std::to_string(failing), rows.size() - on));
}

void printJSON(Session& session, const std::vector<ConsoleRow>& rows) {
    boost::json::array list;
    for (const auto& row : rows) {
        boost::json::object record{{"id", row.source.id},
                                   {"name", row.source.name},
                                   {"enabled", row.enabled},
                                   {"status", kit::encode(row.status)},
                                   {"health", kit::encode(row.health)}};
        if (row.pausedUntil) record["pausedUntil"] = kit::encode(*row.pausedUntil);
        if (row.nextTry) record["nextTry"] = kit::encode(*row.nextTry);
        list.push_back(std::move(record));
    }
    session.out().line(boost::json::serialize(list));
}

}  // namespace

int showSourceConsole(Session& session) {
    auto& store = session.storeForReading();
    const app::SourceRegistry registry(store.sources());
    const auto rows = consoleRows(store, registry, session.now());
    session.options().json ? printJSON(session, rows) : printTable(session, rows);
    return kDone;
}

}  // namespace cli
