#include "Tarnwick_Brell/Newsrooms/RecordChange.h"

namespace app {

void RecordChange::applyTo(RecordTable& table, kit::Instant now) const {
    switch (kind) {
        case Kind::put: return table.put(row);
        case Kind::remove: return table.remove(id, now);
        case Kind::restore: return table.restore(id);
        case Kind::move:
            for (const auto& [moved, rank] : ranks) table.setRank(moved, rank);
            return;
    }
}

}  // namespace app
