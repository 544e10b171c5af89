#include "Tarnwick_Brell/Storage/Histories/AlertHistory.h"

#include "NewsroomKit/Records/Codec.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

namespace {

std::vector<std::string> wordsIn(std::string_view json) {
    try {
        return kit::decode<std::vector<std::string>>(kit::parseJSON(json));
    } catch (const kit::RecordError&) {
        return {};
    }
}

StoredAlert alertIn(Statement& row) {
    return {.number = row.number(0),
            .rule = row.text(1),
            .ruleName = row.text(2),
            .event = row.text(3),
            .title = row.text(4),
            .link = row.text(5),
            .words = wordsIn(row.view(6)),
            .matchedAt = instantOf(row.number(7)),
            .toldAt = instantOf(row.optionalNumber(8)),
            .outcome = kit::enumFromRaw<AlertOutcome>(row.view(9)).value_or(AlertOutcome::quiet)};
}

}  // namespace

bool AlertHistory::add(const StoredAlert& alert) {
    const auto words = boost::json::serialize(kit::encode(alert.words));
    Statement put(
        database_,
        "INSERT OR IGNORE INTO alerts (rule, ruleName, event, title, link, words, "
        "matchedAt, toldAt, outcome) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?) RETURNING number");
    put.bind(0, alert.rule).bind(1, alert.ruleName).bind(2, alert.event).bind(3, alert.title);
    put.bind(4, alert.link).bind(5, words).bind(6, microseconds(alert.matchedAt));
    put.bind(7, microseconds(alert.toldAt)).bind(8, kit::rawValue(alert.outcome));
    return put.step();
}

void AlertHistory::settle(std::string_view rule, std::string_view event, kit::Instant toldAt) {
    Statement change(database_,
                     "UPDATE alerts SET toldAt = ?, outcome = 'summarised' "
                     "WHERE rule = ? AND event = ? AND outcome = 'held'");
    change.bind(0, microseconds(toldAt)).bind(1, rule).bind(2, event);
    change.run();
}

void AlertHistory::dropBefore(kit::Instant matchedAt) {
    Statement drop(database_, "DELETE FROM alerts WHERE matchedAt < ?");
    drop.bind(0, microseconds(matchedAt));
    drop.run();
}

std::vector<std::pair<std::string, std::string>> AlertHistory::matched() {
    Statement rows(database_, "SELECT rule, event FROM alerts");
    std::vector<std::pair<std::string, std::string>> found;
    while (rows.step()) found.emplace_back(rows.text(0), rows.text(1));
    return found;
}

std::vector<StoredAlert> AlertHistory::newest(std::size_t most, std::string_view rule) {
    Statement rows(database_,
                   "SELECT number, rule, ruleName, event, title, link, words, matchedAt, toldAt, "
                   "outcome FROM alerts WHERE (?1 = '' OR rule = ?1) "
                   "ORDER BY number DESC LIMIT ?2");
    rows.bind(0, rule).bind(1, static_cast<std::int64_t>(most));
    std::vector<StoredAlert> found;
    while (rows.step()) found.push_back(alertIn(rows));
    return found;
}

std::int64_t AlertHistory::lastNumber() {
    Statement row(database_, "SELECT coalesce(max(number), 0) FROM alerts");
    row.step();
    return row.number(0);
}

std::int64_t AlertHistory::countUntoldAfter(std::int64_t number) {
    Statement row(database_,
                  "SELECT count(*) FROM alerts WHERE number > ? AND outcome IN ('quiet', 'held') "
                  "AND event NOT LIKE 'signal|%'");
    row.bind(0, number);
    row.step();
    return row.number(0);
}

std::map<std::string, AlertHistory::RuleCount, std::less<>> AlertHistory::countsSince(
    kit::Instant since) {
    Statement rows(database_,
                   "SELECT rule, sum(matchedAt >= ?), max(toldAt) FROM alerts GROUP BY rule");
    rows.bind(0, microseconds(since));
    std::map<std::string, RuleCount, std::less<>> counts;
    while (rows.step()) {
        counts[rows.text(0)] = {.matches = rows.number(1),
                                .lastTold = instantOf(rows.optionalNumber(2))};
    }
    return counts;
}

}  // namespace app
