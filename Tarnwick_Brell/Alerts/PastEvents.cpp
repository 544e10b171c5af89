#include "Tarnwick_Brell/Alerts/PastEvents.h"

#include <algorithm>
#include <chrono>
#include <limits>

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

void addStories(LocalStore& store, const kit::StoryQuery& query, kit::Instant since,
                std::vector<kit::AlertEvent>& events) {
    const auto compiled = query.compiled();
    store.stories().eachInWireOrder(since - kLongestDelay, [&](const StoredStory& stored) {
        const auto at = arrivalOf(stored);
        if (at >= since && isNews(stored) && compiled.matches(stored.story))
            events.push_back({.at = at, .subject = stored.story});
        return true;
    });
    // Those that came together are told in the order of their publication, as they are live.
    std::ranges::reverse(events);
    std::ranges::stable_sort(events, {}, &kit::AlertEvent::at);
}

void addSignals(LocalStore& store, const kit::SignalsTrigger& trigger, kit::Instant since,
                std::vector<kit::AlertEvent>& events) {
    const SignalSelection wanted{
        .kinds = trigger.kinds, .leastWeight = trigger.leastWeight, .since = since};
    const auto most = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
    for (auto& logged : store.signalLog().newest(most, wanted)) {
        const auto at = logged.signal.seenAt;
        events.push_back({.at = at, .subject = std::move(logged.signal)});
    }
    std::ranges::reverse(events);
}

}  // namespace

std::vector<kit::AlertEvent> pastEvents(LocalStore& store, const kit::AlertTrigger& trigger,
                                        const kit::StoryQuery* beat, kit::Instant since) {
    std::vector<kit::AlertEvent> events;
    if (const auto* stories = std::get_if<kit::StoriesTrigger>(&trigger)) {
        if (stories->beat && !beat) return events;
        addStories(store, stories->beat ? *beat : stories->query, since, events);
    } else if (const auto* wanted = std::get_if<kit::SignalsTrigger>(&trigger)) {
        addSignals(store, *wanted, since, events);
    }
    return events;
}

}  // namespace app
