#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/Updates/OfferChange.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

using kit::OfferChange;

/// Every offer that the desk has seen appear or disappear, kept permanently.
class OfferHistory {
public:
    explicit OfferHistory(Database& database) : database_(database) {}

    void add(std::span<const OfferChange> changes);

    /// The newest changes first, of one platform unless `platform` is empty.
    std::vector<OfferChange> newest(std::size_t most, std::string_view platform = "");

    /// The changes after the one with that number, oldest first.
    std::vector<OfferChange> after(std::int64_t number);
    std::int64_t lastNumber();  ///< 0 when there is none

private:
    Database& database_;
};

}  // namespace app
