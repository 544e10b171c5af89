#include "Tarnwick_Brell/Storage/Histories/FindingHistory.h"

#include <limits>
#include <ranges>

#include "Tarnwick_Brell/Storage/SQLite/Compression.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

namespace {

constexpr std::size_t kLargestState = 16'777'216;
/// Of one file; the oldest go first.
constexpr std::int64_t kMostStates = 200;

std::vector<StoredFinding> storedFindingsIn(Statement& rows) {
    std::vector<StoredFinding> found;
    while (rows.step()) {
        try {
            auto finding = kit::decode<kit::BackendFinding>(kit::parseJSON(rows.view(1)));
            found.push_back({rows.number(0), std::move(finding), rows.optionalNumber(2),
                             rows.optionalNumber(3)});
        } catch (const kit::RecordError&) {
            continue;  // Another version wrote it.
        }
    }
    return found;
}

}  // namespace

std::optional<kit::WatchState> FindingHistory::watch(std::string_view file) {
    Statement row(database_, "SELECT state FROM backendWatches WHERE file = ?");
    row.bind(0, file);
    if (!row.step()) return std::nullopt;
    try {
        return kit::decode<kit::WatchState>(kit::parseJSON(uncompressed(row.view(0))));
    } catch (const kit::RecordError&) {
        return std::nullopt;  // Another version wrote it; the watch begins anew.
    }
}

void FindingHistory::add(std::string_view file, const kit::WatchPoll& poll,
                         const std::string& body) {
    std::string last, earlier;
    {
        Statement row(database_, "SELECT body, earlierBody FROM backendWatches WHERE file = ?");
        row.bind(0, file);
        if (row.step()) {
            last = row.text(0);
            earlier = row.text(1);
        }
    }
    const auto latest = body.size() <= kLargestState ? compressed(body) : std::string();
    if (!poll.findings.empty()) {
        const auto before = keepState(file, earlier);
        const auto after = keepState(file, latest);
        Statement put(database_,
                      "INSERT INTO backendFindings (file, seenAt, record, beforeState, afterState) "
                      "VALUES (?, ?, ?, ?, ?)");
        // The first weighs most and is to stand on top of what was found with it.
        for (const auto& finding : std::views::reverse(poll.findings)) {
            const auto record = boost::json::serialize(kit::encode(finding));
            put.bind(0, file).bind(1, microseconds(finding.seenAt)).bind(2, record);
            put.bind(3, before).bind(4, after);
            put.run();
        }
    }
    const auto state = compressed(boost::json::serialize(kit::encode(poll.state)));
    Statement put(database_,
                  "INSERT OR REPLACE INTO backendWatches (file, state, body, earlierBody) "
                  "VALUES (?, ?, ?, ?)");
    put.bind(0, file).bindBytes(1, state).bindBytes(2, latest).bindBytes(3, last);
    put.run();
}

void FindingHistory::setWatch(std::string_view file, const kit::WatchState& state) {
    const auto bytes = compressed(boost::json::serialize(kit::encode(state)));
    Statement put(database_, "UPDATE backendWatches SET state = ? WHERE file = ?");
    put.bindBytes(0, bytes).bind(1, file);
    put.run();
}

std::optional<std::int64_t> FindingHistory::keepState(std::string_view file,
                                                      std::string_view bytes) {
    if (bytes.empty()) return std::nullopt;
    Statement known(database_, "SELECT number FROM backendStates WHERE file = ? AND body = ?");
    known.bind(0, file).bindBytes(1, bytes);
    if (known.step()) return known.number(0);
    Statement put(database_, "INSERT INTO backendStates (file, body) VALUES (?, ?)");
    put.bind(0, file).bindBytes(1, bytes);
    put.run();
    Statement drop(database_,
                   "DELETE FROM backendStates WHERE file = ?1 AND number NOT IN (SELECT number "
                   "FROM backendStates WHERE file = ?1 ORDER BY number DESC LIMIT ?2)");
    drop.bind(0, file).bind(1, kMostStates);
    drop.run();
    Statement row(database_, "SELECT max(number) FROM backendStates WHERE file = ?");
    row.bind(0, file);
    row.step();
    return row.number(0);
}

std::vector<StoredFinding> FindingHistory::newest(std::size_t most, std::string_view file,
                                                  std::optional<kit::Instant> since) {
    Statement rows(database_,
                   "SELECT number, record, beforeState, afterState FROM backendFindings "
                   "WHERE (?1 = '' OR file = ?1) AND seenAt >= ?2 ORDER BY number DESC LIMIT ?3");
    rows.bind(0, file);
    rows.bind(1, since ? microseconds(*since) : std::numeric_limits<std::int64_t>::min());
    rows.bind(2, static_cast<std::int64_t>(most));
    return storedFindingsIn(rows);
}

std::optional<StoredFinding> FindingHistory::find(std::int64_t number) {
    Statement rows(database_,
                   "SELECT number, record, beforeState, afterState FROM backendFindings "
                   "WHERE number = ?");
    rows.bind(0, number);
    auto found = storedFindingsIn(rows);
    if (found.empty()) return std::nullopt;
    return std::move(found.front());
}

std::optional<std::string> FindingHistory::state(std::int64_t number) {
    Statement row(database_, "SELECT body FROM backendStates WHERE number = ?");
    row.bind(0, number);
    if (!row.step()) return std::nullopt;
    return uncompressed(row.view(0));
}

}  // namespace app
