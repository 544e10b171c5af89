#pragma once

#include <cstdint>

#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Brings the library to this program's schema, step by step from the version it has.
/// Throws StoreError and leaves the file untouched when it was written by a newer program.
void migrate(Database& database);

/// The schema's version in the file; 0 before the first step.
std::int64_t versionOf(Database& database);

/// No step has been taken yet: the file is new or was broken off at once.
bool isUnmigrated(Database& database);

/// It holds a library that migrate() would change.
bool isOutdated(Database& database);

/// It was written by a newer program, and migrate() would refuse it.
bool isOfNewerVersion(Database& database);

/// Throws StoreError unless the library already has this program's schema: a reader that
/// may not write cannot bring it up to date.
void requireCurrentSchema(Database& database);

}  // namespace app
