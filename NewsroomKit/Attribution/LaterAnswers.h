#pragma once

#include <span>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Attribution/Ledger.h"

namespace kit {

/// Settles the claims that their own clusters have left open, for Apple often answers months later.
/// Each later story that can settle claims is held against them with the likeness and the vetoes of
/// clusters, whatever the time between; the earliest that tells the claim's news settles it.
/// `stories` hold those of the claims and all that may answer them, with their corrections applied;
/// a story that the user has split off from another one does not settle its claim. `corrections` is
/// null for none.
void settleByLaterAnswers(Ledger& ledger, std::span<const Story* const> stories,
                          const CorrectionOverlay* corrections);

}  // namespace kit
