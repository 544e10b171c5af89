#include "NewsroomKit/Panels/RacesContent.h"

#include <algorithm>
#include <cmath>

namespace kit {

namespace {

std::vector<double> barsOf(const RaceRecord& record, Instant from, Instant::duration span) {
    std::vector<double> sums(kRaceBars, 0);
    std::vector<int> counts(kRaceBars, 0);
    const double most = std::chrono::duration<double>(kFullRaceBar).count();
    for (const auto& lead : record.leads) {
        const auto share =
            static_cast<double>((lead.at - from).count()) / static_cast<double>(span.count());
        const auto place = std::clamp(std::floor(share * static_cast<double>(kRaceBars)), 0.0,
                                      static_cast<double>(kRaceBars - 1));
        const auto bar = static_cast<std::size_t>(place);
        sums[bar] += std::clamp(static_cast<double>(lead.seconds) / most, -1.0, 1.0);
        ++counts[bar];
    }
    for (std::size_t i = 0; i < kRaceBars; ++i) {
        if (counts[i] > 0) sums[i] /= counts[i];
    }
    return sums;
}

}  // namespace

std::vector<Race> racesOf(const PanelNews& news) {
    return racesOf(storiesOf(news), groupsOf(news), news.corrections);
}

RacesContent racesContent(std::span<const Race> races, const RacesFilter& filter, Instant now) {
    const Instant from = now - filter.span;
    std::vector<Race> wanted;
    std::ranges::copy_if(races, std::back_inserter(wanted), [&](const Race& race) {
        return race.at >= from && race.at <= now &&
               (!filter.sourcing || race.sourcing == *filter.sourcing);
    });
    RacesContent content{.races = wanted.size()};
    for (auto& record : raceRecords(wanted)) {
        if (record.subjects < 2 && record.led == 0) continue;
        auto bars = barsOf(record, from, filter.span);
        content.rows.push_back({.record = std::move(record), .bars = std::move(bars)});
    }
    if (filter.picked.size() == 2)
        content.pair = racePair(wanted, filter.picked[0], filter.picked[1]);
    return content;
}

}  // namespace kit
