#include "Tarnwick_Brell/Storage/Histories/ChartHistory.h"

#include <chrono>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

using kit::ChartEntry;
using kit::Instant;

namespace {

constexpr std::chrono::days kKept{366};

std::int64_t dayOf(Instant instant) {
    return microseconds(Instant(std::chrono::floor<std::chrono::days>(instant)));
}

}  // namespace

void ChartHistory::record(Kind kind, const std::vector<ChartEntry>& entries, Instant now) {
    const auto day = dayOf(now);
    Statement drop(database_, "DELETE FROM chartRanks WHERE chart = ?1 AND (day = ?2 OR day < ?3)");
    drop.bind(0, rawValue(kind)).bind(1, day).bind(2, dayOf(now - kKept)).run();
    Statement put(database_,
                  "INSERT INTO chartRanks (chart, day, rank, app, name, developer) "
                  "VALUES (?, ?, ?, ?, ?, ?)");
    for (const auto& entry : entries) {
        put.bind(0, rawValue(kind)).bind(1, day).bind(2, entry.rank).bind(3, entry.id);
        put.bind(4, entry.name).bind(5, entry.developer);
        put.run();
    }
}

std::optional<ChartDay> ChartHistory::dayBefore(Kind kind, Instant now) {
    Statement rows(database_,
                   "SELECT day, app, rank FROM chartRanks WHERE chart = ?1 AND day = "
                   "(SELECT max(day) FROM chartRanks WHERE chart = ?1 AND day < ?2)");
    rows.bind(0, rawValue(kind)).bind(1, dayOf(now));
    std::optional<ChartDay> found;
    while (rows.step()) {
        if (!found) found = ChartDay{.day = instantOf(rows.number(0)), .ranks = {}};
        found->ranks.emplace(rows.text(1), rows.number(2));
    }
    return found;
}

std::vector<ChartDay> ChartHistory::days(Kind kind, Instant since) {
    Statement rows(database_,
                   "SELECT day, app, rank FROM chartRanks WHERE chart = ?1 AND day >= ?2 "
                   "ORDER BY day");
    rows.bind(0, rawValue(kind)).bind(1, dayOf(since));
    std::vector<ChartDay> days;
    while (rows.step()) {
        const auto day = instantOf(rows.number(0));
        if (days.empty() || days.back().day != day) days.push_back({.day = day, .ranks = {}});
        days.back().ranks.emplace(rows.text(1), rows.number(2));
    }
    return days;
}

std::vector<ChartRun> ChartHistory::runs(Kind kind) {
    // SQLite takes the bare columns from the row with the max(), the last day's.
    Statement rows(database_,
                   "SELECT app, name, developer, firstDay, max(day) AS lastDay, days, best, rank "
                   "FROM chartRanks JOIN (SELECT app, min(day) AS firstDay, "
                   "count(DISTINCT day) AS days, min(rank) AS best FROM chartRanks "
                   "WHERE chart = ?1 GROUP BY app) USING (app) "
                   "WHERE chart = ?1 GROUP BY app ORDER BY lastDay DESC, rank");
    rows.bind(0, rawValue(kind));
    std::vector<ChartRun> runs;
    while (rows.step()) {
        runs.push_back({.id = rows.text(0),
                        .name = rows.text(1),
                        .developer = rows.text(2),
                        .firstDay = instantOf(rows.number(3)),
                        .lastDay = instantOf(rows.number(4)),
                        .days = rows.number(5),
                        .best = rows.number(6),
                        .last = rows.number(7)});
    }
    return runs;
}

}  // namespace app
