#include "Tarnwick_Brell/Trackers/ChartPlace.h"

namespace app {

std::vector<ChartPlace> chartPlaces(const std::vector<kit::ChartEntry>& entries,
                                    const std::optional<ChartDay>& dayBefore) {
    std::vector<ChartPlace> places;
    places.reserve(entries.size());
    for (const auto& entry : entries) {
        auto& place = places.emplace_back(ChartPlace{.entry = entry});
        if (!dayBefore) continue;
        const auto before = dayBefore->ranks.find(entry.id);
        place.isNew = before == dayBefore->ranks.end();
        if (!place.isNew) place.rankBefore = before->second;
    }
    return places;
}

}  // namespace app
