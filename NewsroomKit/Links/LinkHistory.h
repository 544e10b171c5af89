#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// What the resolution of links has asked for, and when it may ask again. Kept between runs. Times
/// that lie in the future were recorded while the clock was wrong and count for nothing.
class LinkHistory {
public:
    static constexpr std::chrono::seconds kBetweenRequests{3};
    static constexpr std::size_t kMostInAnHour = 60;
    static constexpr std::chrono::hours kPause{1};
    static constexpr std::chrono::hours kFailureRemembered{24};
    static constexpr std::size_t kMostFailures = 1000;

    struct Failure {
        std::string storyID{};
        Instant at{};

        bool operator==(const Failure&) const = default;
    };

    /// When the next request may be sent, `now` at the earliest.
    Instant nextRequest(Instant now) const;
    void addRequest(Instant now);
    /// After an answer that asks to be left alone.
    void pause(Instant now);

    bool hasFailed(std::string_view storyID, Instant now) const;
    void addFailure(std::string storyID, Instant now);

    bool operator==(const LinkHistory&) const = default;

private:
    friend struct JSONFields<LinkHistory>;

    std::vector<Instant> requests_;  ///< of the last hour, the oldest first
    std::optional<Instant> pausedAt_;
    std::vector<Failure> failures_;  ///< the oldest first
};

template <>
struct JSONFields<LinkHistory::Failure> {
    static constexpr auto fields = std::tuple{
        field("story", &LinkHistory::Failure::storyID),
        field("at", &LinkHistory::Failure::at),
    };
};

template <>
struct JSONFields<LinkHistory> {
    static constexpr auto fields = std::tuple{
        field("requests", &LinkHistory::requests_),
        field("pausedAt", &LinkHistory::pausedAt_),
        field("failures", &LinkHistory::failures_),
    };
};

}  // namespace kit
