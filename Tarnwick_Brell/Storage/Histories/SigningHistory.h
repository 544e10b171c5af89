#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/Signing/SigningChange.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

using kit::SigningChange;

/// Every change of signing that the desk has seen, kept permanently.
class SigningHistory {
public:
    explicit SigningHistory(Database& database) : database_(database) {}

    void add(std::span<const SigningChange> changes);

    /// The newest changes first, of one device unless `device` is empty.
    std::vector<SigningChange> newest(std::size_t most, std::string_view device = "");

    /// The changes after the one with that number, oldest first.
    std::vector<SigningChange> after(std::int64_t number);
    std::int64_t lastNumber();  ///< 0 when there is none

private:
    Database& database_;
};

}  // namespace app
