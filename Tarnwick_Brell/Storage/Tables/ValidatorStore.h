#pragma once

#include "NewsroomKit/HTTP/ValidatorTable.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// The validators of the last run, so that the next one still gets its 304s.
class ValidatorStore {
public:
    explicit ValidatorStore(Database& database) : database_(database) {}

    kit::ValidatorTable::Entries load();
    /// Writes what a run has changed since it loaded `before`; rows that another program has
    /// written meanwhile stay.
    void save(const kit::ValidatorTable::Entries& before,
              const kit::ValidatorTable::Entries& after);

private:
    Database& database_;
};

}  // namespace app
