#pragma once

#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// What the step to version 6 of the schema does beyond SQL, within its transaction:
/// - The records of formerNewsrooms and formerBeats move to the tables that take their places, with
///   ranks in the order that they have.
/// - The user's own sources get the ids that their addresses have (see SourceID.h), wherever the
///   library names them: in stories, switches and statuses, and in the queries of newsrooms and
///   beats. Of two sources with one feed the first stays.
void completeVersion6(Database& database);

}  // namespace app
