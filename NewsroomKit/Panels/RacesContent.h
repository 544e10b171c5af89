#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/Races.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// What the page of races shows: the record of each outlet over the last days, and where two are
/// picked, how they did against each other.
struct RacesContent {
    struct Row {
        RaceRecord record{};
        /// The mean lead of each part of the time, the oldest first: from 1, which is two hours or
        /// more ahead, to -1; 0 where there was no race.
        std::vector<double> bars{};

        bool operator==(const Row&) const = default;
    };

    std::vector<Row> rows{};
    std::size_t races = 0;
    std::optional<RacePair> pair{};

    bool operator==(const RacesContent&) const = default;
};

struct RacesFilter {
    std::chrono::days span{90};
    std::optional<Sourcing> sourcing{};
    std::vector<std::string> picked{};  ///< names of outlets; two make a pair
};

inline constexpr std::size_t kRaceBars = 26;
inline constexpr std::chrono::hours kFullRaceBar{2};

/// The races among these stories, by their clusters.
std::vector<Race> racesOf(const PanelNews& news);

/// Outlets of a single race are left out unless they led it.
RacesContent racesContent(std::span<const Race> races, const RacesFilter& filter, Instant now);

}  // namespace kit
