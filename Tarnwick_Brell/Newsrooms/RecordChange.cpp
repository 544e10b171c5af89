#include "Tarnwick_Brell/Newsrooms/RecordChange.h"

namespace app {

void RecordChange::applyTo(RecordTable& table, kit::Instant now) const {
    switch (kind) {
        case Kind::put: return table.put(id, record);
        case Kind::remove: return table.remove(id, now);
        case Kind::restore: return table.restore(id);
        case Kind::order: return table.order(order);
    }
}

}  // namespace app
