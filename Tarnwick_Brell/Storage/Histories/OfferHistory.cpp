#include "Tarnwick_Brell/Storage/Histories/OfferHistory.h"

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

using kit::UpdateOffer;

namespace {

std::vector<OfferChange> offerChangesIn(Statement& rows) {
    std::vector<OfferChange> changes;
    while (rows.step()) {
        changes.push_back({.offer = kit::decode<UpdateOffer>(kit::parseJSON(rows.text(0))),
                           .isOffered = rows.number(1) != 0,
                           .seenAt = instantOf(rows.number(2))});
    }
    return changes;
}

}  // namespace

void OfferHistory::add(std::span<const OfferChange> changes) {
    if (changes.empty()) return;
    Statement put(database_,
                  "INSERT INTO offerChanges (platform, record, offered, seenAt) "
                  "VALUES (?, ?, ?, ?)");
    for (const auto& change : changes) {
        const auto record = boost::json::serialize(kit::encode(change.offer));
        put.bind(0, change.offer.platform).bind(1, record);
        put.bind(2, std::int64_t{change.isOffered}).bind(3, microseconds(change.seenAt));
        put.run();
    }
}

std::vector<OfferChange> OfferHistory::newest(std::size_t most, std::string_view platform) {
    Statement rows(database_,
                   "SELECT record, offered, seenAt FROM offerChanges "
                   "WHERE ?1 = '' OR platform = ?1 ORDER BY number DESC LIMIT ?2");
    rows.bind(0, platform).bind(1, static_cast<std::int64_t>(most));
    return offerChangesIn(rows);
}

std::vector<OfferChange> OfferHistory::after(std::int64_t number) {
    Statement rows(database_,
                   "SELECT record, offered, seenAt FROM offerChanges "
                   "WHERE number > ? ORDER BY number");
    rows.bind(0, number);
    return offerChangesIn(rows);
}

std::int64_t OfferHistory::lastNumber() {
    Statement row(database_, "SELECT coalesce(max(number), 0) FROM offerChanges");
    row.step();
    return row.number(0);
}

}  // namespace app
