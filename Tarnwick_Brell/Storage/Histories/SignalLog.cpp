#include "Tarnwick_Brell/Storage/Histories/SignalLog.h"

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

using kit::Signal;
using kit::SignalKind;
using kit::SignalWeight;

namespace {

constexpr std::string_view kSignalColumns =
    "s.number, s.id, s.kind, s.subject, s.title, s.detail, s.link, s.happenedAt, s.dayOnly, "
    "s.seenAt, s.weight, s.evidence";

LoggedSignal signalIn(const Statement& row) {
    return {
        .number = row.number(0),
        .signal = {.id = row.text(1),
                   .kind = kit::enumFromRaw<SignalKind>(row.text(2)).value_or(SignalKind()),
                   .subject = row.text(3),
                   .title = row.text(4),
                   .detail = row.text(5),
                   .link = row.optionalText(6),
                   .happenedAt = instantOf(row.optionalNumber(7)),
                   .dayOnly = row.number(8) != 0,
                   .seenAt = instantOf(row.number(9)),
                   .weight = kit::enumFromRaw<SignalWeight>(row.text(10)).value_or(SignalWeight()),
                   .evidence = kit::decode<kit::json::object>(kit::parseJSON(row.text(11)))}};
}

std::vector<LoggedSignal> signalsIn(Statement& rows) {
    std::vector<LoggedSignal> found;
    while (rows.step()) found.push_back(signalIn(rows));
    return found;
}

/// "release OR chart": as words of the index.
template <class E>
std::string anyOf(const std::vector<E>& values) {
    std::string words;
    for (const auto value : values)
        words += (words.empty() ? "" : " OR ") + std::string(rawValue(value));
    return words;
}

std::vector<SignalWeight> weightsFrom(SignalWeight least) {
    std::vector<SignalWeight> weights;
    for (const auto& row : kit::enumTable<SignalWeight>) {
        if (row.value >= least) weights.push_back(row.value);
    }
    return weights;
}

/// What the index must have; empty when every signal does.
std::string matchExpression(const SignalSelection& selection) {
    constexpr std::string_view kText = "{title detail subject}";
    const auto& search = selection.search;
    std::string match;
    const auto add = [&match](std::string_view columns, const std::string& words) {
        if (words.empty()) return;
        match += fmt::format("{}{} : ({})", match.empty() ? "" : " AND ", columns, words);
    };
    add(kText, search.wanted);
    add("kind", anyOf(selection.kinds));
    // NOT needs a left side.
    const bool needsWeight = match.empty() && !search.unwanted.empty();
    if (needsWeight || selection.leastWeight != SignalWeight::routine)
        add("weight", anyOf(weightsFrom(selection.leastWeight)));
    if (search.unwanted.empty()) return match;
    return fmt::format("({}) NOT ({} : ({}))", match, kText, search.unwanted);
}

}  // namespace

std::vector<Signal> SignalLog::add(std::span<const Signal> added) {
    std::vector<Signal> news;
    if (added.empty()) return news;
    Statement put(database_,
                  "INSERT OR IGNORE INTO signals (id, kind, subject, title, detail, link, "
                  "happenedAt, dayOnly, seenAt, weight, evidence) "
                  "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (const auto& signal : added) {
        const auto evidence = boost::json::serialize(signal.evidence);
        put.bind(0, signal.id).bind(1, rawValue(signal.kind)).bind(2, signal.subject);
        put.bind(3, signal.title).bind(4, signal.detail).bind(5, signal.link);
        put.bind(6, microseconds(signal.happenedAt)).bind(7, std::int64_t{signal.dayOnly});
        put.bind(8, microseconds(signal.seenAt)).bind(9, rawValue(signal.weight));
        put.bind(10, evidence).run();
        if (database_.changes() > 0) news.push_back(signal);
    }
    return news;
}

std::vector<LoggedSignal> SignalLog::newest(std::size_t most, const SignalSelection& selection) {
    const auto match = matchExpression(selection);
    const std::string_view number = match.empty() ? "s.number" : "f.rowid";
    auto sql = fmt::format("SELECT {} FROM signals s{} WHERE TRUE", kSignalColumns,
                           match.empty() ? "" : " JOIN signalSearch f ON f.rowid = s.number");
    if (!match.empty()) sql += " AND f.signalSearch MATCH :match";
    if (selection.before) sql += fmt::format(" AND {} < :before", number);
    // Numbers rise with time unless the clock is set back. The bounds spare reading all rows that
    // lie outside; left to itself SQLite would look for them in the rows.
    if (selection.since) {
        sql += fmt::format(
            " AND s.seenAt >= :since "
            "AND {} >= (SELECT min(number) FROM signals INDEXED BY signalsByTime "
            "WHERE seenAt >= :since)",
            number);
    }
    if (selection.until) {
        sql += fmt::format(
            " AND s.seenAt < :until "
            "AND {} <= (SELECT max(number) FROM signals INDEXED BY signalsByTime "
            "WHERE seenAt < :until)",
            number);
    }
    sql += fmt::format(" ORDER BY {} DESC LIMIT :most", number);
    Statement rows(database_, sql);
    int next = 0;
    if (!match.empty()) rows.bind(next++, match);
    if (selection.before) rows.bind(next++, *selection.before);
    if (selection.since) rows.bind(next++, microseconds(*selection.since));
    if (selection.until) rows.bind(next++, microseconds(*selection.until));
    rows.bind(next, static_cast<std::int64_t>(most));
    return signalsIn(rows);
}

std::optional<LoggedSignal> SignalLog::find(std::string_view id) {
    Statement rows(database_,
                   fmt::format("SELECT {} FROM signals s WHERE s.id = ?", kSignalColumns));
    rows.bind(0, id);
    auto found = signalsIn(rows);
    return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

std::vector<LoggedSignal> SignalLog::after(std::int64_t number) {
    Statement rows(database_, fmt::format("SELECT {} FROM signals s WHERE s.number > ? "
                                          "ORDER BY s.number",
                                          kSignalColumns));
    rows.bind(0, number);
    return signalsIn(rows);
}

std::int64_t SignalLog::lastNumber() {
    Statement row(database_, "SELECT coalesce(max(number), 0) FROM signals");
    row.step();
    return row.number(0);
}

std::int64_t SignalLog::countAfter(std::int64_t number) {
    Statement row(database_, "SELECT count(*) FROM signals WHERE number > ?");
    row.bind(0, number);
    row.step();
    return row.number(0);
}

std::optional<kit::Instant> SignalLog::begin() {
    Statement row(database_, "SELECT min(seenAt) FROM signals");
    row.step();
    return instantOf(row.optionalNumber(0));
}

}  // namespace app
