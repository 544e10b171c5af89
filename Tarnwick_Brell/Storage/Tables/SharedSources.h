#pragma once

#include <string>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

/// Sources of the user's own as the user's computers share them: by the hash of the feed's address,
/// so that two computers that add the same feed make the same record. All within the caller's
/// transaction.
namespace app {

/// "f:" and the hash.
std::string sharedSourceName(const kit::NewsSource& source);

void recordSource(Database& database, const kit::NewsSource& source, kit::Instant addedAt);
/// Another name, or another feed, which is another record.
void recordSourceChange(Database& database, const kit::NewsSource& former,
                        const kit::NewsSource& source, kit::Instant now);
void recordSourceRemoval(Database& database, const kit::NewsSource& source);

}  // namespace app
