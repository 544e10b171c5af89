#include "Tarnwick_Brell/Storage/Tables/RecordTable.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

RecordTable::RecordTable(Database& database, std::string_view table, BuiltIn builtIn)
    : database_(database), table_(table), builtIn_(builtIn) {}

/// "$" stands for the table's name.
Statement RecordTable::statement(const std::string& sql) {
    auto named = sql;
    for (auto at = named.find('$'); at != std::string::npos; at = named.find('$', at)) {
        named.replace(at, 1, table_);
    }
    return Statement(database_, named);
}

std::vector<RecordTable::Row> RecordTable::rows(const std::string& rest) {
    auto found = statement("SELECT id, record, rank FROM $ WHERE removedAt IS " + rest);
    std::vector<Row> rows;
    while (found.step()) {
        rows.push_back({.id = found.text(0), .record = found.text(1), .rank = found.text(2)});
    }
    return rows;
}

std::vector<RecordTable::Row> RecordTable::all() {
    auto all = rows("NULL ORDER BY rank, id");
    if (!builtIn_) return all;
    auto builtIn = builtIn_();
    if (statement("SELECT 1 FROM $ WHERE id = ?").bind(0, builtIn.id).step()) return all;
    const auto behind = std::find_if(all.begin(), all.end(), [&](const Row& row) {
        return std::tie(row.rank, row.id) > std::tie(builtIn.rank, builtIn.id);
    });
    all.insert(behind, std::move(builtIn));
    return all;
}

std::vector<RecordTable::Row> RecordTable::removed() {
    return rows("NOT NULL ORDER BY removedAt DESC, rowid DESC");
}

void RecordTable::put(const Row& row) {
    auto put = statement(
        "INSERT INTO $ (id, rank, record) VALUES (?1, ?2, ?3)"
        " ON CONFLICT (id) DO UPDATE SET record = ?3");
    put.bind(0, row.id).bind(1, row.rank).bind(2, row.record).run();
}

void RecordTable::storeBuiltIn(std::string_view id) {
    if (!builtIn_) return;
    const auto builtIn = builtIn_();
    if (builtIn.id != id) return;
    auto store = statement("INSERT OR IGNORE INTO $ (id, rank, record) VALUES (?, ?, ?)");
    store.bind(0, builtIn.id).bind(1, builtIn.rank).bind(2, builtIn.record).run();
}

void RecordTable::remove(std::string_view id, kit::Instant now) {
    storeBuiltIn(id);
    auto bury = statement("UPDATE $ SET removedAt = ?2 WHERE id = ?1 AND removedAt IS NULL");
    bury.bind(0, id).bind(1, microseconds(now)).run();
}

void RecordTable::restore(std::string_view id) {
    statement("UPDATE $ SET removedAt = NULL WHERE id = ?").bind(0, id).run();
}

void RecordTable::setRank(std::string_view id, std::string_view rank) {
    storeBuiltIn(id);
    statement("UPDATE $ SET rank = ?2 WHERE id = ?1").bind(0, id).bind(1, rank).run();
}

}  // namespace app
