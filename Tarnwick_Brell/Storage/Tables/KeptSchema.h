#pragma once

#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Adds the tables of what the user keeps and of its synchronisation.
void addKeptTables(Database& database);

/// Snapshots of the stories that were saved before there were any. To be called after the tables
/// of stories, marks and articles are there.
void keepSavedStories(Database& database);

}  // namespace app
