#include "Tarnwick_Brell/Storage/Histories/OfferHistory.h"

#include <set>
#include <string>
#include <tuple>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

using kit::Instant;
using kit::UpdateOffer;

namespace {

using Key = std::tuple<std::string, std::string, std::string>;

Key keyOf(const UpdateOffer& offer) { return {offer.platform, offer.version, offer.build}; }

/// The offers that are not among the others, each once.
OfferHistory::Offers missingIn(const OfferHistory::Offers& others,
                               const OfferHistory::Offers& offers) {
    std::set<Key> known;
    for (const auto& offer : others) known.insert(keyOf(offer));
    OfferHistory::Offers missing;
    for (const auto& offer : offers) {
        if (known.insert(keyOf(offer)).second) missing.push_back(offer);
    }
    return missing;
}

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

void OfferHistory::record(const std::optional<Offers>& before, const Offers& offers, Instant now) {
    if (!before) return;
    for (const auto& offer : missingIn(offers, *before)) add(offer, false, now);
    for (const auto& offer : missingIn(*before, offers)) add(offer, true, now);
}

void OfferHistory::add(const UpdateOffer& offer, bool isOffered, Instant now) {
    const auto record = boost::json::serialize(kit::encode(offer));
    Statement put(database_,
                  "INSERT INTO offerChanges (platform, record, offered, seenAt) "
                  "VALUES (?, ?, ?, ?)");
    put.bind(0, offer.platform).bind(1, record).bind(2, std::int64_t{isOffered});
    put.bind(3, microseconds(now));
    put.run();
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
