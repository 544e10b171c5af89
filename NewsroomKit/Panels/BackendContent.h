#pragma once

#include <vector>

#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Trackers/Updates/OfferChange.h"

namespace kit {

/// What was found on Apple's servers and pages, what came into the update catalogue and what went,
/// and below it what the catalogue offers.
struct BackendContent {
    PanelCondition condition{};
    std::vector<Signal> findings{};  ///< the last logged first
    /// The last seen first; so few that the offers below stay in sight.
    std::vector<OfferChange> changes{};
    std::vector<UpdateOffer> newest{};  ///< the newest offer for each platform, the latest first
};

/// `changes` and `findings`: the last seen first.
BackendContent backendContent(const CachedValue<std::vector<UpdateOffer>>& updates,
                              const std::vector<OfferChange>& changes,
                              const std::vector<LoggedSignal>& findings = {});

}  // namespace kit
