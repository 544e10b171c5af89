#include "NewsroomKit/Panels/AppHistory.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ranges>

namespace kit {

namespace {

using std::chrono::days;
using Move = AppHistory::Move;

constexpr std::size_t kMostMoves = 6;
constexpr std::int64_t kLeastPlaces = 5;
constexpr std::int64_t kTopTen = 10;

std::chrono::sys_days utcDay(Instant instant) { return std::chrono::floor<days>(instant); }

std::optional<std::int64_t> rankOn(const ChartDay& day, const std::string& app) {
    const auto rank = day.ranks.find(app);
    return rank == day.ranks.end() ? std::nullopt : std::optional(rank->second);
}

bool isNoted(const Move& move) {
    if (!move.before || !move.after) return move.before.has_value() != move.after.has_value();
    return move.entersTopTen || std::abs(*move.before - *move.after) >= kLeastPlaces;
}

std::vector<Move> movesOf(const std::vector<ChartDay>& seen, const std::string& app) {
    std::vector<Move> moves;
    for (std::size_t i = 1; i < seen.size(); ++i) {
        Move move{
            .day = seen[i].day, .before = rankOn(seen[i - 1], app), .after = rankOn(seen[i], app)};
        move.entersTopTen =
            move.after && *move.after <= kTopTen && (!move.before || *move.before > kTopTen);
        if (isNoted(move)) moves.push_back(move);
    }
    std::ranges::reverse(moves);
    if (moves.size() > kMostMoves) moves.resize(kMostMoves);
    return moves;
}

std::vector<AppHistory::OtherApp> othersOf(const std::vector<ChartPast>& charts,
                                           const ChartEntry& app) {
    std::vector<AppHistory::OtherApp> others;
    for (const auto& chart : charts) {
        if (!chart.chart.value) continue;
        for (const auto& entry : *chart.chart.value) {
            if (entry.developer == app.developer && entry.id != app.id)
                others.push_back({.chart = chart.kind, .entry = entry});
        }
    }
    return others;
}

}  // namespace

bool isApplesApp(const ChartEntry& entry) { return entry.developer == "Apple"; }

RankDays rankDays(const std::vector<ChartDay>& days, const std::string& app, Instant last,
                  std::size_t count) {
    RankDays ranks(count);
    for (const auto& day : days) {
        const auto back = (utcDay(last) - utcDay(day.day)).count();
        if (back < 0 || static_cast<std::size_t>(back) >= count) continue;
        ranks[count - 1 - static_cast<std::size_t>(back)] = rankOn(day, app);
    }
    return ranks;
}

std::optional<AppHistory> appHistory(const std::vector<ChartPast>& charts,
                                     AppStoreCharts::Kind chart, const std::string& app) {
    const auto past = std::ranges::find(charts, chart, &ChartPast::kind);
    if (past == charts.end() || !past->chart.value) return std::nullopt;
    const auto entry = std::ranges::find(*past->chart.value, app, &ChartEntry::id);
    if (entry == past->chart.value->end()) return std::nullopt;

    AppHistory history{.entry = *entry, .chart = chart, .isApples = isApplesApp(*entry)};
    history.moves = movesOf(past->days, app);
    history.others = othersOf(charts, *entry);
    if (!past->days.empty()) history.firstDay = past->days.front().day;
    for (const auto& day : past->days) {
        const auto rank = rankOn(day, app);
        if (!rank || (history.bestRank && *rank > *history.bestRank)) continue;
        history.bestRank = rank;
        history.bestDay = day.day;
    }
    return history;
}

}  // namespace kit
