#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"

namespace kit {

/// A subject that at least two outlets covered, and when each of them first had it. Apple is no
/// outlet here: of its announcements the race is who passed them on first.
struct Race {
    struct Runner {
        std::string outlet{};
        std::string story{};  ///< id of its first story on the subject
        Instant at{};
        bool isToTheMinute = false;

        bool operator==(const Runner&) const = default;
    };

    std::string id{};                         ///< of the subject's first story
    std::string title{};                      ///< of the leader's story, else of the first one
    Sourcing sourcing = Sourcing::unlabeled;  ///< of that story
    Instant at{};                             ///< of the first story
    std::optional<std::string> leader{};      ///< absent where that is unclear
    std::optional<std::int64_t> lead{};       ///< seconds before the next outlet
    Attribution::Confidence confidence = Attribution::Confidence::unclear;
    Attribution::Basis basis = Attribution::Basis::time;
    std::vector<Runner> runners{};  ///< an outlet each, the earliest first

    bool operator==(const Race&) const = default;
};

/// `stories` with their corrections applied; `groups` are ids of stories that tell the same news.
/// The latest race comes first.
std::vector<Race> racesOf(std::span<const Story* const> stories,
                          const std::vector<std::vector<std::string>>& groups,
                          const CorrectionOverlay* corrections);

/// How an outlet did in one race: by how many seconds it led, or negative, came after the leader.
struct RaceLead {
    std::string race{};  ///< its id
    Instant at{};
    std::int64_t seconds = 0;

    bool operator==(const RaceLead&) const = default;
};

/// An outlet's record in some races.
struct RaceRecord {
    std::string outlet{};
    std::int64_t subjects = 0;           ///< that it covered
    std::int64_t led = 0;                ///< of these
    std::optional<double> medianLead{};  ///< seconds, over `leads`; negative: mostly behind
    std::array<std::int64_t, enumTable<Sourcing>.size()> ledBySourcing{};
    std::vector<RaceLead> leads{};  ///< where both times are known to the minute; the oldest first

    bool operator==(const RaceRecord&) const = default;
};

/// Who led most comes first, then who covered most, then by name.
std::vector<RaceRecord> raceRecords(std::span<const Race> races);

/// A race between two outlets that both covered the subject.
struct PairedRace {
    std::string race{};
    std::string title{};
    Instant at{};
    std::optional<std::string> leader{};  ///< of the two; absent where it can't be told
    std::optional<std::int64_t> lead{};   ///< seconds
    Attribution::Confidence confidence = Attribution::Confidence::unclear;
    Attribution::Basis basis = Attribution::Basis::time;

    bool operator==(const PairedRace&) const = default;
};

struct RacePair {
    std::array<std::string, 2> outlets{};
    std::array<std::int64_t, 2> led{};
    std::array<std::optional<double>, 2> medianLeads{};  ///< seconds, of the races that each led
    std::vector<PairedRace> races{};                     ///< the latest first

    bool operator==(const RacePair&) const = default;
};

/// Names are compared as those of outlets are, however they are written.
RacePair racePair(std::span<const Race> races, std::string_view one, std::string_view other);

template <>
struct JSONFields<RaceRecord> {
    static constexpr auto fields = std::tuple{
        field("outlet", &RaceRecord::outlet),
        field("subjects", &RaceRecord::subjects),
        field("led", &RaceRecord::led),
        field("medianLead", &RaceRecord::medianLead),
    };
};

template <>
struct JSONFields<PairedRace> {
    static constexpr auto fields = std::tuple{
        field("id", &PairedRace::race),     field("title", &PairedRace::title),
        field("at", &PairedRace::at),       field("leader", &PairedRace::leader),
        field("lead", &PairedRace::lead),   field("confidence", &PairedRace::confidence),
        field("basis", &PairedRace::basis),
    };
};

}  // namespace kit
