#include "Tarnwick_Brell/Desk/Wire.h"

#include <algorithm>
#include <utility>

namespace app {

namespace {

bool isNewer(const PackedStory::Owner& a, const PackedStory::Owner& b) {
    return a->number() > b->number();
}

}  // namespace

const PackedStory* Wire::find(std::string_view id) const {
    const auto found = byID_.find(id);
    return found == byID_.end() ? nullptr : *found;
}

std::optional<std::size_t> Wire::placeOf(std::int64_t number) const {
    const auto found = std::lower_bound(
        stories_.begin(), stories_.end(), number,
        [](const PackedStory::Owner& story, std::int64_t n) { return story->number() > n; });
    if (found == stories_.end() || (*found)->number() != number) return std::nullopt;
    return static_cast<std::size_t>(found - stories_.begin());
}

std::size_t Wire::firstPlaceBelow(std::int64_t number) const {
    const auto found = std::partition_point(
        stories_.begin(), stories_.end(),
        [&](const PackedStory::Owner& story) { return story->number() >= number; });
    return static_cast<std::size_t>(found - stories_.begin());
}

void Wire::index(const PackedStory& story) {
    byID_.erase(story.id());
    byID_.insert(&story);
    savedCount_ += story.isSaved() ? 1 : 0;
}

void Wire::forget(const PackedStory& story) {
    byID_.erase(story.id());
    savedCount_ -= story.isSaved() ? 1 : 0;
}

WireChange Wire::replace(Batch stories) {
    byID_.clear();
    savedCount_ = 0;
    stories_ = std::move(stories);
    if (!std::is_sorted(stories_.begin(), stories_.end(), isNewer)) {
        std::sort(stories_.begin(), stories_.end(), isNewer);
    }
    byID_.reserve(stories_.size());
    for (const auto& story : stories_) index(*story);
    return {.isReset = true};
}

WireChange Wire::merge(Batch batch) {
    WireChange change;
    std::sort(batch.begin(), batch.end(), isNewer);
    std::vector<std::int64_t> revised;
    std::erase_if(batch, [&](PackedStory::Owner& story) {
        const auto place = placeOf(story->number());
        if (!place) return false;
        forget(*stories_[*place]);
        stories_[*place] = std::move(story);
        index(*stories_[*place]);
        revised.push_back(stories_[*place]->number());
        return true;
    });

    // From the back, so that every story moves once.
    const std::size_t before = stories_.size();
    stories_.resize(before + batch.size());
    std::size_t from = before, to = stories_.size();
    for (auto fresh = batch.rbegin(); fresh != batch.rend(); ++fresh) {
        while (from > 0 && stories_[from - 1]->number() < (*fresh)->number()) {
            stories_[--to] = std::move(stories_[--from]);
        }
        stories_[--to] = std::move(*fresh);
        index(*stories_[to]);
        change.inserted.push_back(to);
    }
    std::reverse(change.inserted.begin(), change.inserted.end());
    for (const auto number : revised) change.revised.push_back(*placeOf(number));
    return change;
}

WireChange Wire::drop(std::int64_t lowest, std::size_t ceiling) {
    WireChange change;
    std::size_t excess = stories_.size() > ceiling ? stories_.size() - ceiling : 0;
    // From the oldest end; it stops at the first story that is neither too old nor too many.
    for (std::size_t place = stories_.size(); place-- > 0;) {
        const auto& story = *stories_[place];
        if (story.number() >= lowest && excess <= change.removed.size()) break;
        if (story.isSaved()) continue;
        change.removed.push_back(place);
        change.removedNumbers.push_back(story.number());
    }
    for (const auto place : change.removed) {
        forget(*stories_[place]);
        stories_[place].reset();
    }
    std::erase(stories_, nullptr);
    return change;
}

/// Numbers mostly come in the order of the wire: then the search goes on from the last place.
std::vector<std::int64_t> Wire::change(const std::vector<std::int64_t>& numbers,
                                       bool (PackedStory::*has)() const,
                                       void (PackedStory::*set)(bool), bool on) {
    std::vector<std::int64_t> changed;
    std::size_t next = 0;
    for (const auto number : numbers) {
        const bool isNext = next < stories_.size() && stories_[next]->number() == number;
        const auto place = isNext ? std::optional(next) : placeOf(number);
        if (!place) continue;
        next = *place + 1;
        auto& story = *stories_[*place];
        if ((story.*has)() == on) continue;
        (story.*set)(on);
        changed.push_back(number);
    }
    return changed;
}

std::vector<std::int64_t> Wire::setRead(const std::vector<std::int64_t>& numbers, bool read) {
    return change(numbers, &PackedStory::isRead, &PackedStory::setRead, read);
}

std::vector<std::int64_t> Wire::setSaved(const std::vector<std::int64_t>& numbers, bool saved) {
    auto changed = change(numbers, &PackedStory::isSaved, &PackedStory::setSaved, saved);
    savedCount_ = saved ? savedCount_ + changed.size() : savedCount_ - changed.size();
    return changed;
}

}  // namespace app
