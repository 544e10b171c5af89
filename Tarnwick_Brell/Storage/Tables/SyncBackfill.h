#pragma once

#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Records for the user's other computers what was made before changes were recorded: newsrooms,
/// beats, followed pages, sources of the user's own, switches. What is recorded stays. To be called
/// within a transaction, after all of their tables are there.
void recordUnrecorded(Database& database);

}  // namespace app
