#include "Tarnwick_Brell/Storage/Tables/Version6.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Tarnwick_Brell/Storage/Tables/RecordRank.h"
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

void rankRecords(Database& database) {
    rankTable(database, "formerNewsrooms", "newsrooms");
    rankTable(database, "formerBeats", "beats");
    database.execute("DROP TABLE formerNewsrooms; DROP TABLE formerBeats");
}

}  // namespace

void completeVersion6(Database& database) { rankRecords(database); }

}  // namespace app
