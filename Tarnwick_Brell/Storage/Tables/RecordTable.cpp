#include "Tarnwick_Brell/Storage/Tables/RecordTable.h"

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

RecordTable::RecordTable(Database& database, std::string_view table)
    : database_(database), table_(table) {}

/// "$" stands for the table's name.
Statement RecordTable::statement(const std::string& sql) {
    auto named = sql;
    for (auto at = named.find('$'); at != std::string::npos; at = named.find('$', at)) {
        named.replace(at, 1, table_);
    }
    return Statement(database_, named);
}

std::vector<RecordTable::Row> RecordTable::rows(const std::string& rest) {
    auto found = statement("SELECT id, record, position FROM $ WHERE removedAt IS " + rest);
    std::vector<Row> rows;
    while (found.step()) {
        rows.push_back({.id = found.text(0), .record = found.text(1), .position = found.number(2)});
    }
    return rows;
}

std::vector<RecordTable::Row> RecordTable::all() { return rows("NULL ORDER BY position, rowid"); }

std::vector<RecordTable::Row> RecordTable::removed() {
    return rows("NOT NULL ORDER BY removedAt DESC, rowid DESC");
}

bool RecordTable::isUntouched() { return !statement("SELECT 1 FROM $ LIMIT 1").step(); }

void RecordTable::put(std::string_view id, std::string_view record) {
    auto put = statement(
        "INSERT INTO $ (id, position, record)"
        " VALUES (?1, (SELECT coalesce(max(position), 0) + 1 FROM $), ?2)"
        " ON CONFLICT (id) DO UPDATE SET record = ?2");
    put.bind(0, id).bind(1, record).run();
}

void RecordTable::remove(std::string_view id, kit::Instant now) {
    auto bury = statement("UPDATE $ SET removedAt = ?2 WHERE id = ?1 AND removedAt IS NULL");
    bury.bind(0, id).bind(1, microseconds(now)).run();
}

void RecordTable::restore(std::string_view id) {
    statement("UPDATE $ SET removedAt = NULL WHERE id = ?").bind(0, id).run();
}

void RecordTable::order(const std::vector<std::string>& ids) {
    // What is not named moves behind, in its order; removed ones too.
    auto others = statement("UPDATE $ SET position = position + ?");
    others.bind(0, static_cast<std::int64_t>(ids.size())).run();
    auto place = statement("UPDATE $ SET position = ?2 WHERE id = ?1");
    std::int64_t position = 0;
    for (const auto& id : ids) place.bind(0, id).bind(1, ++position).run();
}

}  // namespace app
