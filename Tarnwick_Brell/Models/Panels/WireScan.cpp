#include "Tarnwick_Brell/Models/Panels/WireScan.h"

#include <algorithm>
#include <string>
#include <utility>

namespace app {

namespace {

/// How many stories are tested before the clock is read again.
constexpr std::size_t kStride = 64;

/// The fields that panels need. Copying whole records would be most of the work.
kit::Story essentials(const PackedStory& packed) {
    kit::Story story;
    story.id = packed.id();
    story.link = packed.link();
    story.title = packed.title();
    story.publishedAt = packed.publishedAt();
    story.sourceName = packed.sourceName();
    if (const auto name = packed.destinationName(); !name.empty()) {
        story.destinationName = std::string(name);
    }
    story.isAppleSource = packed.isAppleSource();
    story.kind = packed.kind();
    story.sourcing = packed.sourcing();
    return story;
}

}  // namespace

WireScan::WireScan(std::size_t mostStories, Summaries summaries, kit::SharedClusters clusters)
    : mostStories_(mostStories), summaries_(summaries), clusters_(std::move(clusters)) {
    if (!clusters_) return;
    for (const auto& cluster : *clusters_)
        clustered_.insert(cluster.storyIDs.begin(), cluster.storyIDs.end());
}

std::size_t WireScan::add(const kit::StoryQuery& query, kit::Instant earliest) {
    auto same = std::find_if(queries_.begin(), queries_.end(),
                             [&](const auto& each) { return each.query == query; });
    if (same == queries_.end()) {
        queries_.push_back({.query = query, .earliest = earliest, .wants = LiveQuery::test(query)});
        return queries_.size() - 1;
    }
    same->earliest = std::min(same->earliest, earliest);
    return static_cast<std::size_t>(same - queries_.begin());
}

bool WireScan::continueFor(const Wire& wire, std::chrono::steady_clock::duration budget) {
    auto end = kit::Instant::max();
    for (const auto& query : queries_) end = std::min(end, query.earliest);
    const auto over = std::chrono::steady_clock::now() + budget;
    std::size_t place = wire.firstPlaceBelow(untestedBelow_);
    do {
        const std::size_t stop = std::min(place + kStride, wire.size());
        for (; place < stop; ++place) {
            if (wire[place].publishedAt() < end) return true;
            if (stories_.size() >= mostStories_) {
                cutAt_ = wire[place].publishedAt();
                return true;
            }
            test(wire[place]);
        }
        if (place == wire.size()) return true;
        untestedBelow_ = wire[place].number() + 1;
    } while (std::chrono::steady_clock::now() < over);
    return false;
}

/// Who was first depends on links, credits and summaries, and what is a claim on the credits.
bool WireScan::needsWholeStory(const PackedStory& story) const {
    const auto sourcing = story.sourcing();
    return sourcing == kit::Sourcing::report || sourcing == kit::Sourcing::rumor ||
           clustered_.contains(story.id());
}

void WireScan::test(const PackedStory& packed) {
    const kit::Story* story = nullptr;
    for (auto& query : queries_) {
        if (packed.publishedAt() < query.earliest || !query.wants(packed)) continue;
        if (!story) {
            auto& copy = stories_.emplace_back(needsWholeStory(packed) ? packed.unpacked().story
                                                                       : essentials(packed));
            if (summaries_ == Summaries::yes) copy.summary = packed.summary();
            story = &copy;
        }
        query.found.push_back(
            {.story = story, .firstSeen = packed.firstSeen(), .isRead = packed.isRead()});
    }
}

kit::Instant WireScan::from(kit::Instant earliest) const {
    return std::max(earliest, cutAt_.value_or(earliest));
}

}  // namespace app
