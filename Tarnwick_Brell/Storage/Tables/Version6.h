#pragma once

#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// What the step to version 6 of the schema does beyond SQL, within its transaction: the records of
/// formerNewsrooms and formerBeats move to the tables that take their places, with ranks in the
/// order that they have.
void completeVersion6(Database& database);

}  // namespace app
