#pragma once

#include <vector>

#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Trackers/Updates/OfferChange.h"

namespace kit {

/// What came into Apple's update catalogue and what went, and below it what the catalogue offers.
struct BackendContent {
    PanelCondition condition{};
    /// The last seen first; so few that the offers below stay in sight.
    std::vector<OfferChange> changes{};
    std::vector<UpdateOffer> newest{};  ///< the newest offer for each platform, the latest first
};

/// `changes`: the last seen first.
BackendContent backendContent(const CachedValue<std::vector<UpdateOffer>>& updates,
                              const std::vector<OfferChange>& changes);

}  // namespace kit
