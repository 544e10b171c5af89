#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// A record that a followed feed has listed, as JSON text.
struct HistoricRecord {
    std::string key{};   ///< the same in every answer
    std::string feed{};  ///< the tracked file's name
    std::optional<kit::Instant> happenedAt{};
    kit::Instant firstSeen{};
    std::string record{};

    bool operator==(const HistoricRecord&) const = default;
};

/// Everything that followed feeds of one kind have listed, kept permanently: their own lists are
/// short. The table does not read the records.
class RecordHistory {
public:
    /// `table` is a table of the schema with the columns of a HistoricRecord.
    RecordHistory(Database& database, std::string_view table)
        : database_(database), table_(table) {}

    /// Adds a record, or replaces the one with its key, whose `feed` and `firstSeen` stay.
    void put(const HistoricRecord& record);
    bool has(std::string_view key);

    /// The records of one feed, in no order.
    std::vector<HistoricRecord> ofFeed(std::string_view feed);

    /// The last happened first, by their first sight where they tell no time; of one feed unless
    /// `feed` is empty, and from `since` on.
    std::vector<HistoricRecord> newest(std::size_t most, std::string_view feed = {},
                                       std::optional<kit::Instant> since = {});

private:
    Database& database_;
    std::string table_;
};

}  // namespace app
