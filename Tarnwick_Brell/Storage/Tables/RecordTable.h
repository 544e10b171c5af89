#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Records of the user's own in an order of the user's own, each as JSON text under its id.
/// The table does not read them. Removed ones stay, hidden, and can come back to their place.
class RecordTable {
public:
    /// `table` is a table of the schema with the columns id, position, record and removedAt.
    RecordTable(Database& database, std::string_view table);

    struct Row {
        std::string id;
        std::string record;
        std::int64_t position = 0;

        bool operator==(const Row&) const = default;
    };

    std::vector<Row> all();
    /// The last removed first.
    std::vector<Row> removed();
    /// No record has ever been in it.
    bool isUntouched();

    /// Writes the record in its place, or behind all others when the id is new.
    void put(std::string_view id, std::string_view record);
    void remove(std::string_view id, kit::Instant now);
    void restore(std::string_view id);
    /// These come first, in this order; what is not named follows in the order it had.
    void order(const std::vector<std::string>& ids);

private:
    Statement statement(const std::string& sql);
    std::vector<Row> rows(const std::string& rest);

    Database& database_;
    std::string table_;
};

}  // namespace app
