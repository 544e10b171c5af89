#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/Updates/OfferChange.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

using kit::OfferChange;

/// Every offer that the desk has seen come or go, for good.
class OfferHistory {
public:
    using Offers = std::vector<kit::UpdateOffer>;

    explicit OfferHistory(Database& database) : database_(database) {}

    /// What has changed between two looks, both of which must be whole; the first look is none.
    /// A build for a platform is one offer, whatever its days and devices.
    void note(const std::optional<Offers>& before, const Offers& offers, kit::Instant now);

    /// The last seen first; of one platform unless it is empty.
    std::vector<OfferChange> newest(std::size_t most, std::string_view platform = "");

    /// Those behind the change of that number, the first seen first.
    std::vector<OfferChange> after(std::int64_t number);
    std::int64_t lastNumber();  ///< 0 when there is none

private:
    void add(const kit::UpdateOffer& offer, bool isOffered, kit::Instant now);

    Database& database_;
};

}  // namespace app
