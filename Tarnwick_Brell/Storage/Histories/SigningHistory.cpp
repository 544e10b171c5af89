#include "Tarnwick_Brell/Storage/Histories/SigningHistory.h"

#include <set>
#include <utility>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

using kit::Instant;
using kit::SignedBuild;
using kit::SigningStatus;

namespace {

using BuildKey = std::pair<std::string, std::string>;

BuildKey keyOf(const SignedBuild& build) { return {build.version, build.build}; }

std::set<BuildKey> signedBuilds(const SigningStatus& status) {
    std::set<BuildKey> keys;
    for (const auto& build : status.builds) {
        if (build.isSigned) keys.insert(keyOf(build));
    }
    return keys;
}

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

void SigningHistory::record(std::string_view device, const std::optional<SigningStatus>& before,
                            const SigningStatus& status, Instant now) {
    if (!before) return;
    const auto were = signedBuilds(*before), are = signedBuilds(status);
    // Logs each build once, even if a list has it twice.
    const auto log = [&](const SigningStatus& list, std::set<BuildKey> known, bool isSigned) {
        for (const auto& build : list.builds) {
            if (!build.isSigned || !known.insert(keyOf(build)).second) continue;
            add({.device = std::string(device),
                 .deviceName = status.name,
                 .version = build.version,
                 .build = build.build,
                 .isSigned = isSigned,
                 .seenAt = now});
        }
    };
    log(*before, are, false);
    log(status, were, true);
}

void SigningHistory::add(const SigningChange& change) {
    Statement put(database_,
                  "INSERT INTO signingChanges (device, deviceName, version, build, signed, seenAt) "
                  "VALUES (?, ?, ?, ?, ?, ?)");
    put.bind(0, change.device).bind(1, change.deviceName).bind(2, change.version);
    put.bind(3, change.build).bind(4, std::int64_t{change.isSigned});
    put.bind(5, microseconds(change.seenAt));
    put.run();
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
