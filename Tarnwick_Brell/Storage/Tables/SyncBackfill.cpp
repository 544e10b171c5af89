#include "Tarnwick_Brell/Storage/Tables/SyncBackfill.h"

#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Sources/SourceJSON.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/SharedSources.h"
#include "Tarnwick_Brell/Storage/Tables/SyncRecorder.h"
#include "Tarnwick_Brell/Storage/Tables/UntouchedNewsroom.h"

namespace app {

namespace {

/// A row of one of the tables of records.
struct OldRecord {
    std::string id{};
    std::string rank{};
    std::string record{};
    bool isRemoved = false;
};

std::vector<OldRecord> unrecorded(Database& database, std::string_view table,
                                  std::string_view kind) {
    Statement rows(database, fmt::format("SELECT id, rank, record, removedAt FROM {} WHERE id NOT "
                                         "IN (SELECT key FROM syncRecords WHERE kind = ?)",
                                         table));
    rows.bind(0, kind);
    std::vector<OldRecord> found;
    while (rows.step())
        found.push_back({rows.text(0), rows.text(1), rows.text(2), !rows.isNull(3)});
    return found;
}

void recordOld(Database& database, std::string_view table, std::string_view kind) {
    SyncRecorder recorder(database);
    for (const auto& [id, rank, text, isRemoved] : unrecorded(database, table, kind)) {
        // Every library has it by itself as long as it is untouched.
        if (!isRemoved && isUntouchedNewsroom(text)) continue;
        try {
            const auto record = kit::parseJSON(text);
            if (!record.is_object()) continue;
            const auto name = fmt::format("{}:{}", kind, id);
            recorder.changed(name, record.get_object());
            recorder.fieldChanged(name, "rank", rank);
            if (isRemoved) recorder.removed(name);
        } catch (const kit::RecordError&) {
            // Kept here as it is, but of no form that other computers could take.
        }
    }
}

void recordOldSources(Database& database) {
    std::vector<kit::NewsSource> sources;
    Statement rows(database, "SELECT record FROM customSources WHERE removedAt IS NULL");
    while (rows.step()) {
        try {
            sources.push_back(kit::decode<kit::NewsSource>(kit::parseJSON(rows.text(0))));
        } catch (const kit::RecordError&) {
            // A newer version's.
        }
    }
    Statement known(database, "SELECT 1 FROM syncRecords WHERE kind || ':' || key = ?");
    for (const auto& source : sources) {
        const auto name = sharedSourceName(source);
        const bool isKnown = known.bind(0, name).step();
        known.reset();
        if (!isKnown) recordSource(database, source, systemInstant());
    }
}

void recordOldSwitches(Database& database) {
    Statement rows(database,
                   "SELECT id, enabled FROM sourceSwitches WHERE id NOT IN "
                   "(SELECT key FROM syncRecords WHERE kind = 'w')");
    std::vector<std::pair<std::string, bool>> switches;
    while (rows.step()) switches.emplace_back(rows.text(0), rows.number(1) != 0);
    SyncRecorder recorder(database);
    for (const auto& [id, enabled] : switches) recorder.changed("w:" + id, {{"enabled", enabled}});
}

}  // namespace

void recordUnrecorded(Database& database) {
    recordOld(database, "newsrooms", "n");
    recordOld(database, "beats", "b");
    recordOld(database, "followedPages", "g");
    recordOldSources(database);
    recordOldSwitches(database);
}

}  // namespace app
