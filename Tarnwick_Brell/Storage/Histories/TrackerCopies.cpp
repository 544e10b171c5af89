#include "Tarnwick_Brell/Storage/Histories/TrackerCopies.h"

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

std::optional<TrackerCopy> TrackerCopies::find(std::string_view name) {
    Statement row(database_, "SELECT body, fetchedAt FROM trackerCopies WHERE name = ?");
    row.bind(0, name);
    if (!row.step()) return std::nullopt;
    return TrackerCopy{.body = row.text(0), .fetchedAt = instantOf(row.number(1))};
}

void TrackerCopies::store(std::string_view name, const TrackerCopy& copy) {
    Statement put(database_,
                  "INSERT INTO trackerCopies (name, body, fetchedAt) VALUES (?1, ?2, ?3) "
                  "ON CONFLICT (name) DO UPDATE SET body = ?2, fetchedAt = ?3 WHERE body <> ?2");
    put.bind(0, name).bind(1, copy.body).bind(2, microseconds(copy.fetchedAt));
    put.run();
}

void TrackerCopies::drop(std::string_view name) {
    Statement(database_, "DELETE FROM trackerCopies WHERE name = ?").bind(0, name).run();
}

TrackerHealth TrackerCopies::health(std::string_view name) {
    Statement row(database_,
                  "SELECT failures, lastError, lastAttempt, lastSuccess FROM trackerHealth "
                  "WHERE name = ?");
    row.bind(0, name);
    if (!row.step()) return {};
    return {.failures = row.number(0),
            .lastError = row.optionalText(1),
            .lastAttempt = instantOf(row.optionalNumber(2)),
            .lastSuccess = instantOf(row.optionalNumber(3))};
}

void TrackerCopies::setHealth(std::string_view name, const TrackerHealth& health) {
    Statement put(database_,
                  "INSERT OR REPLACE INTO trackerHealth "
                  "(name, failures, lastError, lastAttempt, lastSuccess) VALUES (?, ?, ?, ?, ?)");
    put.bind(0, name).bind(1, health.failures).bind(2, health.lastError);
    put.bind(3, microseconds(health.lastAttempt));
    put.bind(4, microseconds(health.lastSuccess));
    put.run();
}

void TrackerCopies::dropAllButLatest(std::string_view prefix, std::size_t count) {
    Statement dropHealth(
        database_,
        "DELETE FROM trackerHealth WHERE name IN (SELECT name FROM trackerHealth "
        "WHERE substr(name, 1, length(?1)) = ?1 ORDER BY lastAttempt DESC LIMIT -1 OFFSET ?2)");
    dropHealth.bind(0, prefix).bind(1, static_cast<std::int64_t>(count));
    dropHealth.run();
    Statement dropCopies(database_,
                         "DELETE FROM trackerCopies WHERE substr(name, 1, length(?1)) = ?1 "
                         "AND name NOT IN (SELECT name FROM trackerHealth) "
                         "AND name NOT IN (SELECT name || ?2 FROM trackerHealth)");
    dropCopies.bind(0, prefix).bind(1, kBefore);
    dropCopies.run();
}

}  // namespace app
