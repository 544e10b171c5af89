#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "NewsroomKit/Records/Codec.h"

namespace desk {

/// How the fetching of one source goes.
struct SourceStatus {
    std::optional<newsroom::Instant> lastAttempt{};
    std::optional<newsroom::Instant> lastSuccess{};  ///< a 304 counts
    std::optional<std::string> lastError{};          ///< shown to the user; absent after a success
    std::int64_t storyCount = 0;  ///< stories the source gave in its last successful fetch

    bool operator==(const SourceStatus&) const = default;
};

}  // namespace desk

template <>
struct newsroom::RecordShape<desk::SourceStatus> {
    static constexpr auto fields = std::tuple{
        field("lastAttempt", &desk::SourceStatus::lastAttempt),
        field("lastSuccess", &desk::SourceStatus::lastSuccess),
        field("lastError", &desk::SourceStatus::lastError),
        field("storyCount", &desk::SourceStatus::storyCount),
    };
};
