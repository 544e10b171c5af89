#include "Tarnwick_Brell/Storage/Tables/ValidatorStore.h"

namespace app {

kit::ValidatorTable::Entries ValidatorStore::load() {
    Statement rows(database_, "SELECT url, entityTag, lastModified FROM validators");
    kit::ValidatorTable::Entries entries;
    while (rows.step()) {
        entries.emplace(rows.text(0), kit::Validators{.entityTag = rows.optionalText(1),
                                                      .lastModified = rows.optionalText(2)});
    }
    return entries;
}

void ValidatorStore::save(const kit::ValidatorTable::Entries& before,
                          const kit::ValidatorTable::Entries& after) {
    Statement put(database_,
                  "INSERT OR REPLACE INTO validators (url, entityTag, lastModified) "
                  "VALUES (?, ?, ?)");
    for (const auto& [url, validators] : after) {
        const auto known = before.find(url);
        if (known != before.end() && known->second == validators) continue;
        put.bind(0, url).bind(1, validators.entityTag).bind(2, validators.lastModified);
        put.run();
    }
    Statement drop(database_, "DELETE FROM validators WHERE url = ?");
    for (const auto& [url, validators] : before) {
        if (after.contains(url)) continue;
        drop.bind(0, url);
        drop.run();
    }
}

}  // namespace app
