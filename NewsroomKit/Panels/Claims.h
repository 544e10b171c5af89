#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// Something that outlets reported or rumored before Apple said anything.
struct Claim {
    enum class State {
        rumored,
        reported,   ///< at least one outlet reports it
        answered,   ///< Apple spoke about it on the record, which may be a denial
        confirmed,  ///< Apple did it or said so
    };

    State state = State::rumored;
    StoryMention first{};                  ///< who said it first; its title is the claim
    std::size_t outlets = 0;               ///< that reported or rumored it before it was confirmed
    std::optional<StoryMention> answer{};  ///< what made it answered or confirmed
    Instant newest{};

    bool operator==(const Claim&) const = default;
};

template <>
inline constexpr std::array<EnumRow<Claim::State>, 4> enumTable<Claim::State>{{
    {Claim::State::rumored, "rumored", "Rumored"},
    {Claim::State::reported, "reported", "Reported"},
    {Claim::State::answered, "answered", "Apple spoke"},
    {Claim::State::confirmed, "confirmed", "Confirmed"},
}};

inline constexpr std::size_t kMostClaims = 30;
inline constexpr std::chrono::days kClaimsSpan{14};

/// News that Apple itself opened is no claim, whatever was reported about it later. The claim
/// with the newest story comes first.
std::vector<Claim> claims(const PanelNews& news);

}  // namespace kit
