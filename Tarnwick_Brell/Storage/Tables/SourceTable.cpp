#include "Tarnwick_Brell/Storage/Tables/SourceTable.h"

#include "NewsroomKit/Sources/SourceJSON.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/SharedSources.h"
#include "Tarnwick_Brell/Storage/Tables/SyncRecorder.h"

namespace app {

namespace {

std::string recordOf(const kit::NewsSource& source) {
    return boost::json::serialize(kit::encode(source));
}

std::vector<kit::NewsSource> records(Statement rows) {
    std::vector<kit::NewsSource> sources;
    while (rows.step()) {
        sources.push_back(kit::decode<kit::NewsSource>(kit::parseJSON(rows.text(0))));
    }
    return sources;
}

/// One that is there and not removed.
std::optional<kit::NewsSource> presentSource(Database& database, std::string_view id) {
    Statement row(database, "SELECT record FROM customSources WHERE id = ? AND removedAt IS NULL");
    row.bind(0, id);
    if (!row.step()) return std::nullopt;
    return kit::decode<kit::NewsSource>(kit::parseJSON(row.text(0)));
}

}  // namespace

std::vector<kit::NewsSource> SourceTable::customSources() {
    return records(Statement(
        database_, "SELECT record FROM customSources WHERE removedAt IS NULL ORDER BY position"));
}

std::vector<kit::NewsSource> SourceTable::removedSources() {
    return records(Statement(
        database_,
        "SELECT record FROM customSources WHERE removedAt IS NOT NULL ORDER BY position"));
}

void SourceTable::add(const kit::NewsSource& source) {
    const auto record = recordOf(source);
    Statement statement(database_, "INSERT INTO customSources (id, record) VALUES (?, ?)");
    statement.bind(0, source.id).bind(1, record);
    statement.run();
    recordSource(database_, source, systemInstant());
}

void SourceTable::restore(const kit::NewsSource& source) {
    const auto record = recordOf(source);
    Statement statement(database_,
                        "UPDATE customSources SET record = ?2, removedAt = NULL, "
                        "position = (SELECT max(position) + 1 FROM customSources) WHERE id = ?1");
    statement.bind(0, source.id).bind(1, record);
    statement.run();
    recordSource(database_, source, systemInstant());
}

void SourceTable::update(const kit::NewsSource& source) {
    const auto former = presentSource(database_, source.id);
    const auto record = recordOf(source);
    Statement statement(database_, "UPDATE customSources SET record = ?2 WHERE id = ?1");
    statement.bind(0, source.id).bind(1, record);
    statement.run();
    if (former) recordSourceChange(database_, *former, source, systemInstant());
}

void SourceTable::remove(std::string_view id, kit::Instant now) {
    if (const auto source = presentSource(database_, id)) recordSourceRemoval(database_, *source);
    Statement bury(database_,
                   "UPDATE customSources SET removedAt = ?2 WHERE id = ?1 AND removedAt IS NULL");
    bury.bind(0, id).bind(1, microseconds(now)).run();
    for (const auto* sql :
         {"DELETE FROM sourceSwitches WHERE id = ?", "DELETE FROM sourceStatus WHERE id = ?",
          "DELETE FROM sourceOptions WHERE id = ?", "DELETE FROM sourceTries WHERE source = ?"}) {
        Statement(database_, sql).bind(0, id).run();
    }
}

std::map<std::string, bool> SourceTable::switches() {
    Statement rows(database_, "SELECT id, enabled FROM sourceSwitches");
    std::map<std::string, bool> switches;
    while (rows.step()) switches.emplace(rows.text(0), rows.number(1) != 0);
    return switches;
}

void SourceTable::setEnabled(std::string_view id, bool enabled) {
    Statement statement(database_,
                        "INSERT OR REPLACE INTO sourceSwitches (id, enabled) VALUES (?, ?)");
    statement.bind(0, id).bind(1, std::int64_t{enabled});
    statement.run();
    SyncRecorder(database_).changed("w:" + std::string(id), {{"enabled", enabled}});
}

SourceTable::Options SourceTable::options() {
    Statement rows(database_, "SELECT id, onlyApple, minimumInterval, notInAll FROM sourceOptions");
    Options options;
    while (rows.step()) {
        SourceOptions option{.notInAll = rows.number(3) != 0};
        if (const auto onlyApple = rows.optionalNumber(1)) option.onlyApple = *onlyApple != 0;
        if (const auto interval = rows.optionalNumber(2))
            option.minimumInterval = static_cast<double>(*interval);
        options.emplace(rows.text(0), option);
    }
    return options;
}

void SourceTable::setOptions(std::string_view id, const SourceOptions& options) {
    if (options == SourceOptions{}) {
        Statement(database_, "DELETE FROM sourceOptions WHERE id = ?").bind(0, id).run();
        return;
    }
    std::optional<std::int64_t> onlyApple, interval;
    if (options.onlyApple) onlyApple = *options.onlyApple;
    if (options.minimumInterval) interval = static_cast<std::int64_t>(*options.minimumInterval);
    Statement statement(database_,
                        "INSERT OR REPLACE INTO sourceOptions (id, onlyApple, minimumInterval, "
                        "notInAll) VALUES (?, ?, ?, ?)");
    statement.bind(0, id).bind(1, onlyApple).bind(2, interval);
    statement.bind(3, std::int64_t{options.notInAll}).run();
}

std::vector<SourceTry> SourceTable::tries(std::string_view id) {
    Statement rows(database_,
                   "SELECT at, outcome, added, reason FROM sourceTries WHERE source = ? "
                   "ORDER BY at");
    rows.bind(0, id);
    std::vector<SourceTry> tries;
    while (rows.step()) {
        // A word of a newer version is no failure.
        const auto outcome = kit::enumFromRaw<SourceTry::Outcome>(rows.text(1));
        tries.push_back({.at = instantOf(rows.number(0)),
                         .outcome = outcome.value_or(SourceTry::Outcome::full),
                         .added = rows.number(2),
                         .reason = rows.text(3)});
    }
    return tries;
}

std::map<std::string, std::int64_t> SourceTable::tryCounts(kit::Instant from) {
    Statement rows(database_,
                   "SELECT source, COUNT(*) FROM sourceTries WHERE at >= ? GROUP BY source");
    rows.bind(0, microseconds(from));
    std::map<std::string, std::int64_t> counts;
    while (rows.step()) counts.emplace(rows.text(0), rows.number(1));
    return counts;
}

void SourceTable::addTry(std::string_view id, const SourceTry& attempt) {
    Statement(database_, "DELETE FROM sourceTries WHERE source = ? AND at < ?")
        .bind(0, id)
        .bind(1, microseconds(attempt.at - kTriesKept))
        .run();
    const std::string outcome(kit::rawValue(attempt.outcome));
    Statement statement(database_,
                        "INSERT OR REPLACE INTO sourceTries (source, at, outcome, added, reason) "
                        "VALUES (?, ?, ?, ?, ?)");
    statement.bind(0, id).bind(1, microseconds(attempt.at)).bind(2, outcome);
    statement.bind(3, attempt.added).bind(4, attempt.reason).run();
}

std::map<std::string, SourceStatus> SourceTable::statuses() {
    Statement rows(database_,
                   "SELECT id, lastAttempt, lastSuccess, lastError, storyCount FROM sourceStatus");
    std::map<std::string, SourceStatus> statuses;
    while (rows.step()) {
        statuses.emplace(rows.text(0),
                         SourceStatus{.lastAttempt = instantOf(rows.optionalNumber(1)),
                                      .lastSuccess = instantOf(rows.optionalNumber(2)),
                                      .lastError = rows.optionalText(3),
                                      .storyCount = rows.number(4)});
    }
    return statuses;
}

void SourceTable::setStatus(std::string_view id, const SourceStatus& status) {
    Statement statement(
        database_,
        "INSERT INTO sourceStatus (id, lastAttempt, lastSuccess, lastError, storyCount) "
        "VALUES (?1, ?2, ?3, ?4, ?5) ON CONFLICT (id) DO UPDATE SET lastAttempt = ?2, "
        "lastSuccess = ?3, lastError = ?4, storyCount = ?5");
    statement.bind(0, id)
        .bind(1, microseconds(status.lastAttempt))
        .bind(2, microseconds(status.lastSuccess));
    statement.bind(3, status.lastError).bind(4, status.storyCount);
    statement.run();
}

std::map<std::string, SourceHealth> SourceTable::healths() {
    Statement rows(database_,
                   "SELECT id, failingSince, latency, bytes, lastFullFetch, newestStory, "
                   "collapsed, collided, movedTo FROM sourceStatus");
    std::map<std::string, SourceHealth> healths;
    while (rows.step()) {
        healths.emplace(rows.text(0),
                        SourceHealth{.failingSince = instantOf(rows.optionalNumber(1)),
                                     .latency = rows.optionalNumber(2),
                                     .bytes = rows.optionalNumber(3),
                                     .lastFullFetch = instantOf(rows.optionalNumber(4)),
                                     .newestStory = instantOf(rows.optionalNumber(5)),
                                     .collapsed = rows.number(6),
                                     .collided = rows.number(7),
                                     .movedTo = rows.optionalText(8)});
    }
    return healths;
}

void SourceTable::setHealth(std::string_view id, const SourceHealth& health) {
    Statement statement(database_,
                        "UPDATE sourceStatus SET failingSince = ?2, latency = ?3, bytes = ?4, "
                        "lastFullFetch = ?5, newestStory = ?6, collapsed = ?7, collided = ?8, "
                        "movedTo = ?9 WHERE id = ?1");
    statement.bind(0, id).bind(1, microseconds(health.failingSince));
    statement.bind(2, health.latency).bind(3, health.bytes);
    statement.bind(4, microseconds(health.lastFullFetch)).bind(5, microseconds(health.newestStory));
    statement.bind(6, health.collapsed).bind(7, health.collided).bind(8, health.movedTo);
    statement.run();
}

bool SourceTable::isRemoved(std::string_view id) {
    Statement row(database_, "SELECT 1 FROM customSources WHERE id = ? AND removedAt IS NOT NULL");
    row.bind(0, id);
    return row.step();
}

}  // namespace app
