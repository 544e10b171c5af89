#pragma once

#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"

namespace kit {

/// An update that Apple's catalogue began or ceased to offer.
struct OfferChange {
    UpdateOffer offer{};
    bool isOffered = false;  ///< since then
    Instant seenAt{};

    bool operator==(const OfferChange&) const = default;
};

template <>
struct JSONFields<OfferChange> {
    static constexpr auto fields = std::tuple{
        field("offer", &OfferChange::offer),
        field("offered", &OfferChange::isOffered),
        field("seenAt", &OfferChange::seenAt),
    };
};

}  // namespace kit
