#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Backend/BackendWatch.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// A finding with the states of the file before it and with it, by their numbers. States that
/// are too large or too old are not kept.
struct StoredFinding {
    std::int64_t number = 0;
    kit::BackendFinding finding{};
    std::optional<std::int64_t> before{};
    std::optional<std::int64_t> after{};

    bool operator==(const StoredFinding&) const = default;
};

/// What has been found in Apple's public files, and what their watch remembers.
class FindingHistory {
public:
    explicit FindingHistory(Database& database) : database_(database) {}

    /// Nothing before the first poll of the file.
    std::optional<kit::WatchState> watch(std::string_view file);

    /// Stores what the watch remembers after a poll, with what the file said. The findings refer
    /// to the answer before the last one, which lacks them, and to this one. Call it within a
    /// transaction.
    void add(std::string_view file, const kit::WatchPoll& poll, const std::string& body);

    /// Stores what the watch remembers after a poll that brought no new answer. Call it within a
    /// transaction.
    void setWatch(std::string_view file, const kit::WatchState& state);

    /// The last found first; of one file unless `file` is empty.
    std::vector<StoredFinding> newest(std::size_t most, std::string_view file = {},
                                      std::optional<kit::Instant> since = {});
    std::optional<StoredFinding> find(std::int64_t number);

    /// A state as it was sent; nothing when it is no longer kept.
    std::optional<std::string> state(std::int64_t number);

private:
    std::optional<std::int64_t> keepState(std::string_view file, std::string_view bytes);

    Database& database_;
};

}  // namespace app
