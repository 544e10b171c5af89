#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/RecordTable.h"

namespace desk {

/// What a change of a shelf asks of its table.
struct ShelfWrite {
    enum class Kind { put, remove, restore, order };

    Kind kind{};
    std::string id{};                  ///< of what is put, removed or restored
    std::string record{};              ///< of what is put
    std::vector<std::string> order{};  ///< all ids

    /// Throws StoreError.
    void applyTo(RecordTable& table, newsroom::Instant now) const;
};

}  // namespace desk
