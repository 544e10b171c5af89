#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// What an outlet reported or rumored before Apple said anything, and what became of it.
struct LedgerClaim {
    enum class State { open, confirmed, denied, expired };

    std::string outlet{};
    std::string story{};  ///< id of the outlet's first story with the claim
    Sourcing sourcing = Sourcing::rumor;
    Instant at{};
    State state = State::open;
    std::optional<std::string> settledBy{};  ///< id of the story that confirms or denies it
    std::optional<double> days{};            ///< until then
    std::string why{};  ///< how that story tells the claim's news; empty while none settles it

    bool operator==(const LedgerClaim&) const = default;
};

/// An outlet's record. The claims are open, confirmed, denied or expired.
struct LedgerOutlet {
    std::string outlet{};
    std::int64_t claims = 0;
    std::int64_t confirmed = 0;
    std::int64_t denied = 0;
    std::int64_t open = 0;
    std::int64_t expired = 0;
    std::optional<double> medianDays{};  ///< to the confirmation

    bool operator==(const LedgerOutlet&) const = default;
};

struct Ledger {
    std::vector<LedgerClaim> claims{};    ///< by time, then by the story's id
    std::vector<LedgerOutlet> outlets{};  ///< the most claims first, then by name

    bool operator==(const Ledger&) const = default;
};

/// A claim that nobody has settled after that long is no longer followed.
inline constexpr std::chrono::days kClaimLifetime{365};

/// `stories` with their corrections applied; `groups` are ids of stories that tell the same news. A
/// story in no group stands alone. A claim is settled only by a story of its own group.
Ledger makeLedger(std::span<const Story* const> stories,
                  const std::vector<std::vector<std::string>>& groups, Instant now);

/// What the story makes of a claim that it is about: Apple confirms it, or denies it on the record.
/// Nothing where it leaves the claim open.
std::optional<LedgerClaim::State> settlementBy(const Story& story);

/// The outlets' records from their claims: the most claims first, then by name.
std::vector<LedgerOutlet> ledgerOutlets(const std::vector<LedgerClaim>& claims);

template <>
inline constexpr std::array<EnumRow<LedgerClaim::State>, 4> enumTable<LedgerClaim::State>{{
    {LedgerClaim::State::open, "open", "Open"},
    {LedgerClaim::State::confirmed, "confirmed", "Confirmed"},
    {LedgerClaim::State::denied, "denied", "Denied"},
    {LedgerClaim::State::expired, "expired", "Expired"},
}};

template <>
struct JSONFields<LedgerClaim> {
    static constexpr auto fields = std::tuple{
        field("outlet", &LedgerClaim::outlet),     field("story", &LedgerClaim::story),
        field("sourcing", &LedgerClaim::sourcing), field("at", &LedgerClaim::at),
        field("state", &LedgerClaim::state),       field("settledBy", &LedgerClaim::settledBy),
        field("days", &LedgerClaim::days),
    };
};

template <>
struct JSONFields<LedgerOutlet> {
    static constexpr auto fields = std::tuple{
        field("outlet", &LedgerOutlet::outlet),
        field("claims", &LedgerOutlet::claims),
        field("confirmed", &LedgerOutlet::confirmed),
        field("denied", &LedgerOutlet::denied),
        field("open", &LedgerOutlet::open),
        field("expired", &LedgerOutlet::expired),
        field("medianDays", &LedgerOutlet::medianDays),
    };
};

template <>
struct JSONFields<Ledger> {
    static constexpr auto fields = std::tuple{
        field("claims", &Ledger::claims),
        field("outlets", &Ledger::outlets),
    };
};

}  // namespace kit
