#pragma once

#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Adds the log of signals and the tables of records.
void completeVersion9(Database& database);

}  // namespace app
