#include "Tarnwick_Brell/Storage/Tables/Version6.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "NewsroomKit/Sources/SourceCatalog.h"
#include "NewsroomKit/Sources/SourceJSON.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Storage/Tables/RecordRank.h"
#include "Tarnwick_Brell/Storage/Tables/SourceID.h"
#include "Tarnwick_Brell/Storage/Tables/UntouchedNewsroom.h"

namespace app {

namespace {

struct FormerRecord {
    std::string id;
    std::string record;
    std::optional<std::int64_t> removedAt;
};

std::vector<FormerRecord> formerRecords(Database& database, const std::string& table) {
    Statement rows(database,
                   "SELECT id, record, removedAt FROM " + table + " ORDER BY position, rowid");
    std::vector<FormerRecord> records;
    while (rows.step()) {
        records.push_back({rows.text(0), rows.text(1), rows.optionalNumber(2)});
    }
    return records;
}

void insert(Database& database, const std::string& table, const FormerRecord& record,
            const std::string& rank) {
    Statement row(database,
                  "INSERT INTO " + table + " (id, rank, record, removedAt) VALUES (?, ?, ?, ?)");
    row.bind(0, record.id).bind(1, rank).bind(2, record.record).bind(3, record.removedAt).run();
}

/// Ranks in a row. The record at `middle` gets the rank of a first record.
std::vector<std::string> ranksAround(std::size_t middle, std::size_t count) {
    std::vector<std::string> ranks(count);
    ranks[middle] = rankBetween("", "");
    for (auto i = middle; i-- > 0;) ranks[i] = rankBetween("", ranks[i + 1]);
    for (auto i = middle + 1; i < count; ++i) ranks[i] = rankBetween(ranks[i - 1], "");
    return ranks;
}

void rankTable(Database& database, const std::string& former, const std::string& table) {
    const auto records = formerRecords(database, former);
    if (records.empty()) return;
    const auto untouched = std::find_if(records.begin(), records.end(), [](const auto& record) {
        return !record.removedAt && isUntouchedNewsroom(record.record);
    });
    // The untouched newsroom stands where it stood without a record, because the others are
    // ranked around it.
    const auto middle = untouched == records.end() ? records.begin() : untouched;
    const auto ranks =
        ranksAround(static_cast<std::size_t>(middle - records.begin()), records.size());
    for (auto record = records.begin(); record != records.end(); ++record) {
        const auto& rank = ranks[static_cast<std::size_t>(record - records.begin())];
        if (record != untouched) insert(database, table, *record, rank);
    }
}

struct OwnSource {
    kit::NewsSource source;
    std::string newID;
    bool isRepeated = false;  ///< an earlier one has the same feed
};

using NewIDs = std::map<std::string, std::string, std::less<>>;

/// Those in use come first, in the order in which they were added. One that can't be read is left
/// out and stays as it is.
std::vector<kit::NewsSource> readableSources(Database& database) {
    Statement rows(database,
                   "SELECT record FROM customSources ORDER BY removedAt IS NOT NULL, position");
    std::vector<kit::NewsSource> sources;
    while (rows.step()) {
        try {
            sources.push_back(kit::decode<kit::NewsSource>(kit::parseJSON(rows.view(0))));
        } catch (const kit::RecordError&) {
            continue;
        }
    }
    return sources;
}

std::set<std::string> idsInUse(Database& database) {
    std::set<std::string> ids;
    for (const auto& source : kit::defaultSourceCatalog()) ids.insert(source.id);
    Statement rows(database, "SELECT id FROM customSources");
    while (rows.step()) ids.insert(rows.text(0));
    return ids;
}

std::vector<OwnSource> ownSources(Database& database) {
    auto taken = idsInUse(database);
    std::map<std::string, std::string> byFeed;
    std::vector<OwnSource> own;
    for (auto& source : readableSources(database)) {
        const auto isTaken = [&](const std::string& id) {
            return id != source.id && taken.contains(id);
        };
        const auto [entry, isFirst] = byFeed.try_emplace(kit::canonicalLink(source.feedURL));
        if (isFirst) entry->second = sourceIDFor(source.feedURL, isTaken);
        taken.insert(entry->second);
        own.push_back({std::move(source), entry->second, !isFirst});
    }
    return own;
}

/// The id of a story that leads elsewhere is made from its source's as well.
void renameStories(Database& database, const std::string& from, const std::string& to) {
    Statement foreign(database,
                      "SELECT number, id, link FROM stories WHERE sourceID = ? "
                      "AND destinationName IS NOT NULL");
    foreign.bind(0, from);
    std::map<std::int64_t, std::string> ids;
    while (foreign.step()) {
        const auto link = foreign.text(2);
        if (foreign.view(1) != kit::storyID(from + "|" + link)) continue;
        ids.emplace(foreign.number(0), kit::storyID(to + "|" + link));
    }
    Statement rename(database, "UPDATE OR IGNORE stories SET id = ?2 WHERE number = ?1");
    for (const auto& [number, id] : ids) rename.bind(0, number).bind(1, id).run();
    Statement(database, "UPDATE stories SET sourceID = ?2 WHERE sourceID = ?1")
        .bind(0, from)
        .bind(1, to)
        .run();
}

void rename(Database& database, const OwnSource& own) {
    const auto& [source, newID, isRepeated] = own;
    for (const std::string table : {"sourceSwitches", "sourceStatus"}) {
        Statement(database, "UPDATE OR IGNORE " + table + " SET id = ?2 WHERE id = ?1")
            .bind(0, source.id)
            .bind(1, newID)
            .run();
        // Of a repeated source, whose place is taken.
        Statement(database, "DELETE FROM " + table + " WHERE id = ?").bind(0, source.id).run();
    }
    renameStories(database, source.id, newID);
    if (isRepeated) {
        Statement(database, "DELETE FROM customSources WHERE id = ?").bind(0, source.id).run();
        return;
    }
    auto renamed = source;
    renamed.id = newID;
    const auto record = kit::json::serialize(kit::encode(renamed));
    Statement(database, "UPDATE customSources SET id = ?2, record = ?3 WHERE id = ?1")
        .bind(0, source.id)
        .bind(1, newID)
        .bind(2, record)
        .run();
}

/// In every list of sources, wherever it stands in a record.
bool replaceSourceIDs(kit::json::value& value, const NewIDs& ids) {
    bool changed = false;
    if (auto* list = value.if_array()) {
        for (auto& item : *list) changed = replaceSourceIDs(item, ids) || changed;
    }
    auto* object = value.if_object();
    if (!object) return changed;
    for (auto& [key, member] : *object) {
        auto* sources = key == "sourceIDs" ? member.if_array() : nullptr;
        if (!sources) {
            changed = replaceSourceIDs(member, ids) || changed;
            continue;
        }
        for (auto& source : *sources) {
            const auto entry = source.is_string() ? ids.find(source.get_string()) : ids.end();
            if (entry == ids.end()) continue;
            source = entry->second;
            changed = true;
        }
    }
    return changed;
}

void renameInQueries(Database& database, const std::string& table, const NewIDs& ids) {
    std::map<std::string, std::string> changed;
    Statement rows(database, "SELECT id, record FROM " + table);
    while (rows.step()) {
        try {
            auto record = kit::parseJSON(rows.view(1));
            if (replaceSourceIDs(record, ids))
                changed.emplace(rows.text(0), kit::json::serialize(record));
        } catch (const kit::RecordError&) {
            continue;
        }
    }
    Statement update(database, "UPDATE " + table + " SET record = ?2 WHERE id = ?1");
    for (const auto& [id, record] : changed) update.bind(0, id).bind(1, record).run();
}

void rankRecords(Database& database) {
    rankTable(database, "formerNewsrooms", "newsrooms");
    rankTable(database, "formerBeats", "beats");
    database.execute("DROP TABLE formerNewsrooms; DROP TABLE formerBeats");
}

void renameSources(Database& database) {
    NewIDs ids;
    for (const auto& own : ownSources(database)) {
        if (own.newID == own.source.id) continue;
        rename(database, own);
        ids.emplace(own.source.id, own.newID);
    }
    for (const auto* table : {"newsrooms", "beats"}) renameInQueries(database, table, ids);
}

}  // namespace

void completeVersion6(Database& database) {
    rankRecords(database);
    renameSources(database);
}

}  // namespace app
