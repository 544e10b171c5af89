#include "Tarnwick_Brell/Models/Panels/WireScan.h"

#include <algorithm>
#include <string>

namespace app {

namespace {

/// How many stories are tested between two looks at the clock.
constexpr std::size_t kStride = 64;

/// What panels look at; the rest of the record would be most of the work.
kit::Story essentials(const PackedStory& packed) {
    kit::Story story;
    story.id = packed.id();
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

std::size_t WireScan::ask(const kit::StoryQuery& query, kit::Instant earliest) {
    auto asked = std::find_if(questions_.begin(), questions_.end(),
                              [&](const auto& question) { return question.query == query; });
    if (asked == questions_.end()) {
        questions_.push_back(
            {.query = query, .earliest = earliest, .test = LiveQuery::test(query)});
        return questions_.size() - 1;
    }
    asked->earliest = std::min(asked->earliest, earliest);
    return static_cast<std::size_t>(asked - questions_.begin());
}

bool WireScan::continueFor(const Wire& wire, std::chrono::steady_clock::duration budget) {
    auto end = kit::Instant::max();
    for (const auto& question : questions_) end = std::min(end, question.earliest);
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
            look(wire[place]);
        }
        if (place == wire.size()) return true;
        untestedBelow_ = wire[place].number() + 1;
    } while (std::chrono::steady_clock::now() < over);
    return false;
}

void WireScan::look(const PackedStory& packed) {
    const kit::Story* story = nullptr;
    for (auto& question : questions_) {
        if (packed.publishedAt() < question.earliest || !question.test(packed)) continue;
        if (!story) story = &stories_.emplace_back(essentials(packed));
        question.found.push_back(
            {.story = story, .firstSeen = packed.firstSeen(), .isRead = packed.isRead()});
    }
}

kit::Instant WireScan::from(kit::Instant earliest) const {
    return std::max(earliest, cutAt_.value_or(earliest));
}

}  // namespace app
