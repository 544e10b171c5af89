#include "Tarnwick_Brell/Newsrooms/ShelfWrite.h"

namespace desk {

void ShelfWrite::applyTo(RecordTable& table, newsroom::Instant now) const {
    switch (kind) {
        case Kind::put: return table.put(id, record);
        case Kind::remove: return table.remove(id, now);
        case Kind::restore: return table.restore(id);
        case Kind::order: return table.order(order);
    }
}

}  // namespace desk
