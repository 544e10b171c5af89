#pragma once

#include <optional>
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

/// The claims among some stories, the latest first.
std::vector<LedgerRow> ledgerRows(const Ledger& ledger, const PanelNews& news);

/// The ledger of all these stories, however old, by their clusters.
Ledger makeLedger(const PanelNews& news);

}  // namespace kit
