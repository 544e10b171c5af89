#include "Tarnwick_Brell/Desk/LiveQuery.h"

#include <algorithm>
#include <functional>

namespace app {

namespace {

/// How many stories are tested between two looks at the clock.
constexpr std::size_t kStride = 256;

}  // namespace

std::optional<std::size_t> LiveQuery::placeOf(std::int64_t number) const {
    const auto found = std::lower_bound(numbers_.begin(), numbers_.end(), number, std::greater());
    if (found == numbers_.end() || *found != number) return std::nullopt;
    return static_cast<std::size_t>(found - numbers_.begin());
}

LiveQuery::Test LiveQuery::test(const kit::StoryQuery& query) {
    return [query = query.compiled()](const PackedStory& story) {
        return query.matches(kit::StoryFacts{.kind = story.kind(),
                                             .sourcing = story.sourcing(),
                                             .sourceID = story.sourceID(),
                                             .title = story.title(),
                                             .summary = story.summary()});
    };
}

WireChange LiveQuery::begin() {
    numbers_.clear();
    untestedBelow_ = kAll;
    return {.isReset = true};
}

WireChange LiveQuery::begin(std::vector<std::int64_t> found) {
    numbers_ = std::move(found);
    untestedBelow_ = kNone;
    return {.isReset = true};
}

WireChange LiveQuery::continueFor(const Wire& wire, std::chrono::steady_clock::duration budget) {
    WireChange change;
    const auto end = std::chrono::steady_clock::now() + budget;
    std::size_t place = wire.firstPlaceBelow(untestedBelow_);
    do {
        const std::size_t stop = std::min(place + kStride, wire.size());
        for (; place < stop; ++place) {
            if (!wants(wire[place])) continue;
            change.inserted.push_back(numbers_.size());
            numbers_.push_back(wire[place].number());
        }
        untestedBelow_ = place < wire.size() ? wire[place].number() + 1 : kNone;
    } while (!isComplete() && std::chrono::steady_clock::now() < end);
    return change;
}

WireChange LiveQuery::rebuild(const Wire& wire) {
    const auto change = begin();
    while (!isComplete()) continueFor(wire, std::chrono::seconds(1));
    return change;
}

WireChange LiveQuery::follow(const Wire& wire, const WireChange& wireChange) {
    if (wireChange.isReset) return begin();

    std::vector<std::int64_t> leaving, coming, staying;
    for (const auto number : wireChange.removedNumbers) {
        if (placeOf(number)) leaving.push_back(number);
    }
    for (const auto place : wireChange.inserted) {
        const auto& story = wire[place];
        if (isTested(story.number()) && wants(story)) coming.push_back(story.number());
    }
    for (const auto place : wireChange.revised) {
        const auto& story = wire[place];
        if (!isTested(story.number())) continue;
        const bool isWanted = wants(story);
        const bool isHere = placeOf(story.number()).has_value();
        if (isWanted && isHere) staying.push_back(story.number());
        if (isWanted && !isHere) coming.push_back(story.number());
        if (!isWanted && isHere) leaving.push_back(story.number());
    }

    WireChange change;
    std::sort(leaving.begin(), leaving.end());
    remove(leaving, change);
    std::sort(coming.begin(), coming.end(), std::greater());
    insert(coming, change);
    for (const auto number : staying) change.revised.push_back(*placeOf(number));
    std::sort(change.revised.begin(), change.revised.end());
    return change;
}

void LiveQuery::remove(const std::vector<std::int64_t>& rising, WireChange& change) {
    if (rising.empty()) return;
    for (const auto number : rising) change.removed.push_back(*placeOf(number));
    change.removedNumbers = rising;
    auto leaving = change.removed.rbegin();
    std::size_t to = *leaving;
    for (std::size_t from = to; from < numbers_.size(); ++from) {
        if (leaving != change.removed.rend() && *leaving == from) {
            ++leaving;
        } else {
            numbers_[to++] = numbers_[from];
        }
    }
    numbers_.resize(to);
}

/// From the back, so that every number moves once, and none behind the last that came.
void LiveQuery::insert(const std::vector<std::int64_t>& falling, WireChange& change) {
    std::size_t from = numbers_.size();
    numbers_.resize(from + falling.size());
    std::size_t to = numbers_.size();
    for (auto coming = falling.rbegin(); coming != falling.rend(); ++coming) {
        while (from > 0 && numbers_[from - 1] < *coming) numbers_[--to] = numbers_[--from];
        numbers_[--to] = *coming;
        change.inserted.push_back(to);
    }
    std::reverse(change.inserted.begin(), change.inserted.end());
}

}  // namespace app
