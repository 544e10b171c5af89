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

/// Every change of signing that the desk has seen, kept permanently.
class SigningHistory {
public:
    explicit SigningHistory(Database& database) : database_(database) {}

    /// Records the changes between two answers; the first answer for a device is no change. Both
    /// must be complete: a signed build that is gone is no longer signed.
    void record(std::string_view device, const std::optional<kit::SigningStatus>& before,
                const kit::SigningStatus& status, kit::Instant now);

    /// The newest changes first, of one device unless `device` is empty.
    std::vector<SigningChange> newest(std::size_t most, std::string_view device = "");

    /// The changes after the one with that number, oldest first.
    std::vector<SigningChange> after(std::int64_t number);
    std::int64_t lastNumber();  ///< 0 when there is none

private:
    void add(const SigningChange& change);

    Database& database_;
};

}  // namespace app
