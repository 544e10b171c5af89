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

/// Every offer that the desk has seen appear or disappear, kept permanently.
class OfferHistory {
public:
    using Offers = std::vector<kit::UpdateOffer>;

    explicit OfferHistory(Database& database) : database_(database) {}

    /// Records the changes between two answers, both of which must be complete; the first answer is
    /// no change. A build for a platform is one offer, whatever its dates and devices.
    void record(const std::optional<Offers>& before, const Offers& offers, kit::Instant now);

    /// The newest changes first, of one platform unless `platform` is empty.
    std::vector<OfferChange> newest(std::size_t most, std::string_view platform = "");

    /// The changes after the one with that number, oldest first.
    std::vector<OfferChange> after(std::int64_t number);
    std::int64_t lastNumber();  ///< 0 when there is none

private:
    void add(const kit::UpdateOffer& offer, bool isOffered, kit::Instant now);

    Database& database_;
};

}  // namespace app
