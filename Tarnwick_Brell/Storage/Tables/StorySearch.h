#pragma once

#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Tables/StorySelection.h"
#include "Tarnwick_Brell/Storage/Tables/StoryTable.h"

namespace app {

/// Finds stories of the library: in their text, by their marks, their source and their time.
class StorySearch {
public:
    StorySearch(Database& database, StoryTable& stories) : database_(database), stories_(stories) {}

    /// The selected stories, newest first, until `visit` says false. They are found as they
    /// are visited, so that the first ones come at once however many there are.
    void each(const StorySelection& selection, const StoryTable::Visitor& visit);

private:
    Database& database_;
    StoryTable& stories_;
};

}  // namespace app
