#pragma once

#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Logs what the histories of a library without a log tell, as the trackers would have logged it.
/// All of it counts as seen by the user. Charts stay out: their history has days, not changes.
void logPast(Database& database);

}  // namespace app
