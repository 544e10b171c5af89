#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Records of the user's own, each as JSON text under its id, in the order of their ranks (see
/// RecordRank.h) and of their ids where ranks are equal. The table does not read the records.
/// Removed ones stay, hidden, and can come back to their place.
class RecordTable {
public:
    struct Row {
        std::string id;
        std::string record;
        std::string rank;

        bool operator==(const Row&) const = default;
    };

    /// A record that every library has without storing it, until the user changes, moves or
    /// removes it.
    using BuiltIn = Row (*)();

    /// `table` is a table of the schema with the columns id, rank, record and removedAt.
    RecordTable(Database& database, std::string_view table, BuiltIn builtIn = nullptr);

    std::vector<Row> all();
    /// The last removed first.
    std::vector<Row> removed();

    /// Writes a new record, or a changed one in its place.
    void put(const Row& row);
    void remove(std::string_view id, kit::Instant now);
    void restore(std::string_view id);
    void setRank(std::string_view id, std::string_view rank);

private:
    Statement statement(const std::string& sql);
    std::vector<Row> rows(const std::string& rest);
    void storeBuiltIn(std::string_view id);

    Database& database_;
    std::string table_;
    BuiltIn builtIn_;
};

}  // namespace app
