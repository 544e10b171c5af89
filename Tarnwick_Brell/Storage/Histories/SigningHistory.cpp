#include "Tarnwick_Brell/Storage/Histories/SigningHistory.h"

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

namespace {

std::vector<SigningChange> signingChangesIn(Statement& rows) {
    std::vector<SigningChange> changes;
    while (rows.step()) {
        changes.push_back({.device = rows.text(0),
                           .deviceName = rows.text(1),
                           .version = rows.text(2),
                           .build = rows.text(3),
                           .isSigned = rows.number(4) != 0,
                           .seenAt = instantOf(rows.number(5))});
    }
    return changes;
}

}  // namespace

void SigningHistory::add(std::span<const SigningChange> changes) {
    if (changes.empty()) return;
    Statement put(database_,
                  "INSERT INTO signingChanges (device, deviceName, version, build, signed, seenAt) "
                  "VALUES (?, ?, ?, ?, ?, ?)");
    for (const auto& change : changes) {
        put.bind(0, change.device).bind(1, change.deviceName).bind(2, change.version);
        put.bind(3, change.build).bind(4, std::int64_t{change.isSigned});
        put.bind(5, microseconds(change.seenAt));
        put.run();
    }
}

std::vector<SigningChange> SigningHistory::newest(std::size_t most, std::string_view device) {
    Statement rows(database_,
                   "SELECT device, deviceName, version, build, signed, seenAt FROM signingChanges "
                   "WHERE ?1 = '' OR device = ?1 ORDER BY number DESC LIMIT ?2");
    rows.bind(0, device).bind(1, static_cast<std::int64_t>(most));
    return signingChangesIn(rows);
}

std::vector<SigningChange> SigningHistory::after(std::int64_t number) {
    Statement rows(database_,
                   "SELECT device, deviceName, version, build, signed, seenAt FROM signingChanges "
                   "WHERE number > ? ORDER BY number");
    rows.bind(0, number);
    return signingChangesIn(rows);
}

std::int64_t SigningHistory::lastNumber() {
    Statement row(database_, "SELECT coalesce(max(number), 0) FROM signingChanges");
    row.step();
    return row.number(0);
}

}  // namespace app
