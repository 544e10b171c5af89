#include "Tarnwick_Brell/Storage/Histories/RecordHistory.h"

#include <cstdint>
#include <limits>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

namespace {

std::vector<HistoricRecord> historicRecordsIn(Statement& rows) {
    std::vector<HistoricRecord> records;
    while (rows.step()) {
        auto& record = records.emplace_back();
        record.key = rows.text(0);
        record.feed = rows.text(1);
        if (!rows.isNull(2)) record.happenedAt = instantOf(rows.number(2));
        record.firstSeen = instantOf(rows.number(3));
        record.record = rows.text(4);
    }
    return records;
}

}  // namespace

void RecordHistory::put(const HistoricRecord& record) {
    Statement put(database_, "INSERT INTO " + table_ +
                                 " (key, feed, happenedAt, firstSeen, record) "
                                 "VALUES (?, ?, ?, ?, ?) ON CONFLICT (key) DO UPDATE SET "
                                 "happenedAt = excluded.happenedAt, record = excluded.record");
    put.bind(0, record.key).bind(1, record.feed).bind(2, microseconds(record.happenedAt));
    put.bind(3, microseconds(record.firstSeen)).bind(4, record.record);
    put.run();
}

bool RecordHistory::has(std::string_view key) {
    Statement row(database_, "SELECT 1 FROM " + table_ + " WHERE key = ?");
    row.bind(0, key);
    return row.step();
}

std::vector<HistoricRecord> RecordHistory::ofFeed(std::string_view feed) {
    Statement rows(database_, "SELECT key, feed, happenedAt, firstSeen, record FROM " + table_ +
                                  " WHERE feed = ?");
    rows.bind(0, feed);
    return historicRecordsIn(rows);
}

std::vector<HistoricRecord> RecordHistory::newest(std::size_t most, std::string_view feed,
                                                  std::optional<kit::Instant> since) {
    Statement rows(database_,
                   "SELECT key, feed, happenedAt, firstSeen, record FROM " + table_ +
                       " WHERE (?1 = '' OR feed = ?1) AND coalesce(happenedAt, firstSeen) >= ?2 "
                       "ORDER BY coalesce(happenedAt, firstSeen) DESC, firstSeen DESC, key "
                       "LIMIT ?3");
    rows.bind(0, feed);
    rows.bind(1, since ? microseconds(*since) : std::numeric_limits<std::int64_t>::min());
    rows.bind(2, static_cast<std::int64_t>(most));
    return historicRecordsIn(rows);
}

}  // namespace app
