#pragma once

#include <span>
#include <string>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Attribution/Ledger.h"

namespace kit {

/// Which story settled a claim, and why it is about that claim.
struct ClaimAnswer {
    std::string claim{};  ///< id of the claim's story
    std::string story{};  ///< id
    std::string why{};

    bool operator==(const ClaimAnswer&) const = default;
};

/// Settles the claims that their own clusters have left open, for Apple often answers months later.
/// Each later story that can settle claims is held against them with the likeness and the vetoes of
/// clusters, whatever the time between; the earliest that tells the claim's news settles it.
/// `stories` hold those of the claims and all that may answer them, with their corrections applied;
/// a story that the user has split off from another one does not settle its claim. `corrections` is
/// null for none. What has settled a claim before, `known`, does so again while its story still
/// can.
void settleByLaterAnswers(Ledger& ledger, std::span<const Story* const> stories,
                          const CorrectionOverlay* corrections,
                          std::span<const ClaimAnswer> known = {});

}  // namespace kit
