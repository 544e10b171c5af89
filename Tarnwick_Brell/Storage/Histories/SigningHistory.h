#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/Signing/SigningChange.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

using kit::SigningChange;

/// Every change of signing that the desk has seen, for good.
class SigningHistory {
public:
    explicit SigningHistory(Database& database) : database_(database) {}

    /// What has changed between two looks; the first look at a device is none. Both must be
    /// whole: a signed build that is gone is signed no longer.
    void note(std::string_view device, const std::optional<kit::SigningStatus>& before,
              const kit::SigningStatus& status, kit::Instant now);

    /// The last seen first; of one device unless it is empty.
    std::vector<SigningChange> newest(std::size_t most, std::string_view device = "");

    /// Those behind the change of that number, the first seen first.
    std::vector<SigningChange> after(std::int64_t number);
    std::int64_t lastNumber();  ///< 0 when there is none

private:
    void add(const SigningChange& change);

    Database& database_;
};

}  // namespace app
