#pragma once

#include <optional>
#include <span>
#include <vector>

#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Trackers/Updates/OfferChange.h"

namespace kit {

/// The changes between two answers, both of which must be complete; the first answer is no change.
/// A build for a platform is one offer, whatever its dates and devices.
std::vector<OfferChange> offerChanges(const std::optional<std::vector<UpdateOffer>>& before,
                                      const std::vector<UpdateOffer>& after, Instant now);

/// One for each change.
std::vector<Signal> signalsOf(std::span<const OfferChange> changes);

}  // namespace kit
