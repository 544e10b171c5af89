#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

struct TrackerCopy {
    std::string body{};        ///< as it came
    kit::Instant fetchedAt{};  ///< first fetch of this body; see TrackerHealth::lastSuccess

    bool operator==(const TrackerCopy&) const = default;
};

struct TrackerHealth {
    std::int64_t failures = 0;  ///< since the last success
    std::optional<std::string> lastError{};
    std::optional<kit::Instant> lastAttempt{};
    std::optional<kit::Instant> lastSuccess{};

    bool operator==(const TrackerHealth&) const = default;
};

/// The last good answer of each tracker by name, and the health of its fetches.
class TrackerCopies {
public:
    explicit TrackerCopies(Database& database) : database_(database) {}

    std::optional<TrackerCopy> find(std::string_view name);
    /// Writes nothing when the body is unchanged, as most are.
    void store(std::string_view name, const TrackerCopy& copy);
    void drop(std::string_view name);

    TrackerHealth health(std::string_view name);
    void setHealth(std::string_view name, const TrackerHealth& health);

    /// The suffix of the name under which the previous answer is stored.
    static constexpr std::string_view kBefore = "/before";

    /// Of all names with this prefix, keeps only the last requested ones: users look at many
    /// symbols once.
    void dropAllButLatest(std::string_view prefix, std::size_t count);

private:
    Database& database_;
};

}  // namespace app
