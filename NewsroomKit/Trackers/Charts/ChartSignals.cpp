#include "NewsroomKit/Trackers/Charts/ChartSignals.h"

#include <algorithm>
#include <string>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Trackers/SignalsAPI.h"

namespace kit {

namespace {

constexpr std::int64_t kTopTen = 10;

std::string appsOf(AppStoreCharts::Kind chart) {
    switch (chart) {
        case AppStoreCharts::Kind::topFree: return "free apps";
        case AppStoreCharts::Kind::topPaid: return "paid apps";
    }
    return "apps";
}

std::optional<std::int64_t> rankIn(const std::vector<ChartEntry>& entries, const std::string& app) {
    const auto entry = std::ranges::find(entries, app, &ChartEntry::id);
    return entry == entries.end() ? std::nullopt : std::optional(entry->rank);
}

SignalEvent eventOf(const ChartEntry& entry) {
    if (entry.rank == 1) return SignalEvent::chartLeader;
    return entry.developer == "Apple" ? SignalEvent::chartTopTenOfApple : SignalEvent::chartTopTen;
}

}  // namespace

std::vector<Signal> signalsOf(AppStoreCharts::Kind chart,
                              const std::optional<std::vector<ChartEntry>>& before,
                              const std::vector<ChartEntry>& after, Instant now) {
    std::vector<Signal> found;
    if (!before) return found;
    for (const auto& entry : after) {
        if (entry.rank > kTopTen) continue;
        const auto reached = entry.rank == 1 ? entry.rank : kTopTen;
        const auto former = rankIn(*before, entry.id);
        if (former && *former <= reached) continue;
        auto signal = signalOf(eventOf(entry));
        signal.id = "chart|" + std::string(rawValue(chart)) + "|" + entry.id + "|" +
                    std::to_string(reached) + "|" + signalDay(now);
        signal.subject = entry.name;
        signal.title =
            entry.name + (reached == 1 ? " leads the " : " enters the top 10 of ") + appsOf(chart);
        if (former)
            signal.title += ", " + std::to_string(*former) + " → " + std::to_string(entry.rank);
        signal.detail = entry.developer;
        signal.link = entry.url;
        signal.seenAt = now;
        signal.evidence = {{"after", entry.rank}, {"readAt", SignalsAPI::chartAddress(chart)}};
        if (former) signal.evidence["before"] = *former;
        found.push_back(std::move(signal));
    }
    return found;
}

}  // namespace kit
