#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/Ledger.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// What the page of the rumor ledger shows: the record of each outlet and its claims.
struct LedgerContent {
    struct Claim {
        LedgerClaim claim{};
        std::string title{};         ///< of the outlet's story
        std::string settledTitle{};  ///< of the story that settled it; empty while none has

        bool operator==(const Claim&) const = default;
    };

    std::vector<LedgerOutlet> outlets{};
    /// Outlets with fewer claims than kLeastClaims, for which a share would say nothing.
    std::vector<LedgerOutlet> lesser{};
    std::vector<Claim> claims{};  ///< that the filter wants, the latest first
    std::int64_t total = 0;

    bool operator==(const LedgerContent&) const = default;
};

inline constexpr std::int64_t kLeastClaims = 10;

struct LedgerFilter {
    std::string outlet{};  ///< empty for all
    std::optional<LedgerClaim::State> state{};
};

/// Claims whose stories are not among `stories` are shown without a title.
LedgerContent ledgerContent(const Ledger& ledger, std::span<const Story* const> stories,
                            const LedgerFilter& filter);

}  // namespace kit
