#pragma once

#include <string>
#include <utility>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Tables/RecordTable.h"

namespace app {

/// What a change of ordered records writes to their table.
struct RecordChange {
    enum class Kind { put, remove, restore, move };

    Kind kind{};
    std::string id{};        ///< of what is removed or restored
    RecordTable::Row row{};  ///< of what is put
    /// Ids and ranks of what is moved: one record, unless two programs have given others the
    /// same rank.
    std::vector<std::pair<std::string, std::string>> ranks{};

    /// Throws StoreError.
    void applyTo(RecordTable& table, kit::Instant now) const;
};

}  // namespace app
