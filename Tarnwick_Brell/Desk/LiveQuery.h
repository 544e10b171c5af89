#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Desk/Wire.h"

namespace app {

/// The stories of the wire that a query or another test wants, newest first, kept while the wire
/// changes.
///
/// It starts empty and is filled from the newest story on, in steps that fit between two
/// frames of a window:
///
///     auto change = live.begin();                    // lists empty themselves
///     while (!live.isComplete()) change = live.continueFor(wire, 8ms);  // … and grow
///
/// The wire may change between the steps. From begin() on, every change of the wire must be
/// given to follow(), with the wire as it is right after that change.
class LiveQuery {
public:
    /// Which stories are wanted; to give the same answer for a story that has not changed.
    using Test = std::function<bool(const PackedStory&)>;

    explicit LiveQuery(Test wants) : wants_(std::move(wants)) {}
    explicit LiveQuery(const kit::StoryQuery& query) : wants_(test(query)) {}

    static Test test(const kit::StoryQuery& query);

    std::size_t size() const { return numbers_.size(); }
    /// Of the stories found, falling.
    const std::vector<std::int64_t>& numbers() const { return numbers_; }
    std::optional<std::size_t> placeOf(std::int64_t number) const;

    WireChange begin();
    /// The same where somebody else has found the stories: complete at once. Falling numbers.
    WireChange begin(std::vector<std::int64_t> found);
    /// Tests stories until `budget` is spent, always some hundred at least. What it finds comes
    /// at the end of the list.
    WireChange continueFor(const Wire& wire, std::chrono::steady_clock::duration budget);
    bool isComplete() const { return untestedBelow_ == kNone; }
    /// Both in one go.
    WireChange rebuild(const Wire& wire);

    /// What a change of the wire changes in this list, as places in this list. Only stories
    /// that came or were revised are tested. A reset begins anew.
    WireChange follow(const Wire& wire, const WireChange& change);

    bool wants(const PackedStory& story) const { return wants_(story); }
    /// Whether the list has got as far as that story.
    bool isTested(std::int64_t number) const { return number >= untestedBelow_; }

private:
    static constexpr std::int64_t kNone = std::numeric_limits<std::int64_t>::min();
    static constexpr std::int64_t kAll = std::numeric_limits<std::int64_t>::max();

    void remove(const std::vector<std::int64_t>& rising, WireChange& change);
    void insert(const std::vector<std::int64_t>& falling, WireChange& change);

    Test wants_;
    std::vector<std::int64_t> numbers_{};
    /// Stories with lower numbers are still to be tested. A number, not a place: those move.
    std::int64_t untestedBelow_ = kAll;
};

}  // namespace app
