#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/Ledger.h"
#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// A claim of the ledger with the stories that it stands on.
struct LedgerRow {
    LedgerClaim claim{};
    StoryMention story{};
    std::optional<StoryMention> settledBy{};

    bool operator==(const LedgerRow&) const = default;
};

/// The ledger of some stories, which it does not need any more.
struct LedgerRecord {
    std::vector<LedgerOutlet> outlets{};  ///< the most claims first, then by name
    std::vector<LedgerRow> claims{};      ///< the latest first

    /// What settled them.
    std::vector<ClaimAnswer> answers() const;
};

/// Settles claims by their clusters and by later answers, however old the stories are.
LedgerRecord ledgerOf(const PanelNews& news);

/// What is shown of a ledger: the record of each outlet and the claims that are wanted.
struct LedgerContent {
    std::vector<LedgerOutlet> outlets{};
    /// Outlets with fewer claims than kLeastClaims, for which a share would say nothing.
    std::vector<LedgerOutlet> lesser{};
    std::vector<LedgerRow> claims{};  ///< that the filter wants, the latest first

    bool operator==(const LedgerContent&) const = default;
};

inline constexpr std::int64_t kLeastClaims = 10;

struct LedgerFilter {
    std::string outlet{};  ///< however it is written; empty for all
    std::optional<LedgerClaim::State> state{};
};

LedgerContent ledgerContent(const LedgerRecord& ledger, const LedgerFilter& filter);

}  // namespace kit
