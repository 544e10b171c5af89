#include "Tarnwick_Brell/Alerts/PastEvents.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>

#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

// What comes later than that after its publication is no news.
constexpr std::chrono::days kLongestDelay{7};

bool isNews(const StoredStory& stored) {
    return stored.arrival == Arrival::fresh || stored.arrival == Arrival::seeded;
}

kit::Instant arrivalOf(const StoredStory& stored) {
    return stored.arrival == Arrival::seeded ? stored.story.publishedAt : stored.firstSeen;
}

}  // namespace

std::vector<kit::AlertEvent> pastStories(LocalStore& store, kit::Instant since,
                                         const kit::StoryQuery* query) {
    const auto compiled = query ? std::optional(query->compiled()) : std::nullopt;
    std::vector<kit::AlertEvent> events;
    store.stories().eachInWireOrder(since - kLongestDelay, [&](const StoredStory& stored) {
        const auto at = arrivalOf(stored);
        if (at >= since && isNews(stored) && (!compiled || compiled->matches(stored.story)))
            events.push_back({.at = at, .subject = stored.story});
        return true;
    });
    // Those that came together are told in the order of their publication, as they are live.
    std::ranges::reverse(events);
    std::ranges::stable_sort(events, {}, &kit::AlertEvent::at);
    return events;
}

std::vector<kit::AlertEvent> pastSignals(LocalStore& store, kit::Instant since) {
    const auto most = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
    std::vector<kit::AlertEvent> events;
    for (auto& logged : store.signalLog().newest(most, {.since = since})) {
        const auto at = logged.signal.seenAt;
        events.push_back({.at = at, .subject = std::move(logged.signal)});
    }
    std::ranges::reverse(events);
    return events;
}

}  // namespace app
