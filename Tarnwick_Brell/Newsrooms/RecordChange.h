#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Tables/RecordTable.h"

namespace app {

/// What a change of a shelf asks of its table.
struct RecordChange {
    enum class Kind { put, remove, restore, order };

    Kind kind{};
    std::string id{};                  ///< of what is put, removed or restored
    std::string record{};              ///< of what is put
    std::vector<std::string> order{};  ///< all ids

    /// Throws StoreError.
    void applyTo(RecordTable& table, kit::Instant now) const;
};

}  // namespace app
