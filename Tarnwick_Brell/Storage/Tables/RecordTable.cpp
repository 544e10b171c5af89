#include "Tarnwick_Brell/Storage/Tables/RecordTable.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "NewsroomKit/Records/Codec.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/SyncRecorder.h"

namespace app {

namespace {

/// The prefix under which the records of a table are shared with the user's other computers; empty
/// for those that stay here.
std::string sharedPrefix(std::string_view table) {
    if (table == "newsrooms") return "n:";
    if (table == "beats") return "b:";
    if (table == "followedPages") return "g:";
    return {};
}

/// Notes a change for the user's other computers, if records of the table are shared.
template <class Note>
void recordChange(Database& database, std::string_view table, std::string_view id,
                  const Note& note) {
    const auto prefix = sharedPrefix(table);
    if (prefix.empty() || database.changes() == 0) return;
    SyncRecorder recorder(database);
    try {
        note(recorder, prefix + std::string(id));
    } catch (const kit::RecordError&) {
        // Kept here as it is, but of no form that other computers could take.
    }
}

}  // namespace

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
    recordChange(database_, table_, row.id, [&](SyncRecorder& recorder, const std::string& name) {
        const auto record = kit::parseJSON(row.record);
        if (!record.is_object()) return;
        recorder.changed(name, record.get_object());
        recorder.fieldChanged(name, "rank", row.rank);
    });
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
    recordChange(database_, table_, id,
                 [](SyncRecorder& recorder, const std::string& name) { recorder.removed(name); });
}

void RecordTable::restore(std::string_view id) {
    statement("UPDATE $ SET removedAt = NULL WHERE id = ?").bind(0, id).run();
    recordChange(database_, table_, id,
                 [](SyncRecorder& recorder, const std::string& name) { recorder.restored(name); });
}

void RecordTable::setRank(std::string_view id, std::string_view rank) {
    storeBuiltIn(id);
    statement("UPDATE $ SET rank = ?2 WHERE id = ?1").bind(0, id).bind(1, rank).run();
    recordChange(database_, table_, id, [&](SyncRecorder& recorder, const std::string& name) {
        recorder.fieldChanged(name, "rank", rank);
    });
}

}  // namespace app
