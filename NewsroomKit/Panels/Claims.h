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
        answered,   ///< Apple spoke about it on the record, and left it open
        denied,     ///< Apple denied it
        confirmed,  ///< Apple did it or said so
    };

    State state = State::rumored;
    StoryMention first{};                  ///< who said it first; its title is the claim
    std::size_t outlets = 0;               ///< that reported or rumored it before it was confirmed
    std::optional<StoryMention> answer{};  ///< what Apple said or did about it
    Instant newest{};

    bool operator==(const Claim&) const = default;
};

template <>
inline constexpr std::array<EnumRow<Claim::State>, 5> enumTable<Claim::State>{{
    {Claim::State::rumored, "rumored", "Rumored"},
    {Claim::State::reported, "reported", "Reported"},
    {Claim::State::answered, "answered", "Apple spoke"},
    {Claim::State::denied, "denied", "Denied"},
    {Claim::State::confirmed, "confirmed", "Confirmed"},
}};

inline constexpr std::size_t kMostClaims = 30;
inline constexpr std::chrono::days kClaimsSpan{14};

/// What the ledger counts as claims. Equal headlines stand once. The claim with the newest story
/// comes first.
std::vector<Claim> claims(const PanelNews& news);

}  // namespace kit
