#include "Tarnwick_Brell/Storage/SourceTable.h"

#include "NewsroomKit/Sources/SourceShape.h"
#include "Tarnwick_Brell/Storage/Instants.h"

namespace desk {

namespace {

std::optional<std::int64_t> column(const std::optional<newsroom::Instant>& instant) {
    return instant ? std::optional(microseconds(*instant)) : std::nullopt;
}

std::optional<newsroom::Instant> instantAt(const Statement& row, int index) {
    const auto number = row.optionalNumber(index);
    return number ? std::optional(instantOf(*number)) : std::nullopt;
}

}  // namespace

std::vector<newsroom::NewsSource> SourceTable::customSources() {
    Statement rows(database_, "SELECT record FROM customSources ORDER BY position");
    std::vector<newsroom::NewsSource> sources;
    while (rows.step()) {
        sources.push_back(
            newsroom::decode<newsroom::NewsSource>(newsroom::parseJSON(rows.text(0))));
    }
    return sources;
}

void SourceTable::add(const newsroom::NewsSource& source) {
    const auto record = boost::json::serialize(newsroom::encode(source));
    Statement statement(database_, "INSERT INTO customSources (id, record) VALUES (?, ?)");
    statement.bind(0, source.id).bind(1, record);
    statement.run();
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
}

std::map<std::string, SourceStatus> SourceTable::statuses() {
    Statement rows(database_,
                   "SELECT id, lastAttempt, lastSuccess, lastError, storyCount FROM sourceStatus");
    std::map<std::string, SourceStatus> statuses;
    while (rows.step()) {
        statuses.emplace(rows.text(0), SourceStatus{.lastAttempt = instantAt(rows, 1),
                                                    .lastSuccess = instantAt(rows, 2),
                                                    .lastError = rows.optionalText(3),
                                                    .storyCount = rows.number(4)});
    }
    return statuses;
}

void SourceTable::setStatus(std::string_view id, const SourceStatus& status) {
    Statement statement(
        database_,
        "INSERT OR REPLACE INTO sourceStatus (id, lastAttempt, lastSuccess, lastError, "
        "storyCount) VALUES (?, ?, ?, ?, ?)");
    statement.bind(0, id).bind(1, column(status.lastAttempt)).bind(2, column(status.lastSuccess));
    statement.bind(3, status.lastError).bind(4, status.storyCount);
    statement.run();
}

}  // namespace desk
