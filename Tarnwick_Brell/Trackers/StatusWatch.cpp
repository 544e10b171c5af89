#include "Tarnwick_Brell/Trackers/StatusWatch.h"

#include <chrono>
#include <string>

#include "NewsroomKit/Records/RecordError.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

using kit::Instant;
using kit::WatchedSpan;

// Longer than any pause between two fetches, also after failures.
constexpr std::chrono::hours kLongestPause{2};
// Pages show 90 days of the reader's calendar.
constexpr std::chrono::days kKeptFor{100};
// More than Apple reports in that time.
constexpr std::size_t kMostIncidents = 2'000;

std::string watchKey(kit::StatusFeed audience) {
    return "statusWatch/" + std::string(rawValue(audience));
}

}  // namespace

std::vector<WatchedSpan> watchedSpans(DeskState& state, kit::StatusFeed audience) {
    const auto text = state.text(watchKey(audience));
    if (!text) return {};
    try {
        return kit::decode<std::vector<WatchedSpan>>(kit::parseJSON(*text));
    } catch (const kit::RecordError&) {
        return {};
    }
}

void extendWatch(DeskState& state, kit::StatusFeed audience, Instant now) {
    auto spans = watchedSpans(state, audience);
    std::erase_if(spans, [&](const auto& span) { return span.to < now - kKeptFor; });
    const bool goesOn =
        !spans.empty() && now >= spans.back().to && now - spans.back().to <= kLongestPause;
    if (goesOn) {
        spans.back().to = now;
    } else if (spans.empty() || now > spans.back().to) {
        spans.push_back({now, now});
    }
    state.setText(watchKey(audience), boost::json::serialize(kit::encode(spans)));
}

kit::StatusHistory loadStatusHistory(LocalStore& store) {
    return {.incidents = store.incidents().find("", kMostIncidents),
            .consumerWatch = watchedSpans(store.state(), kit::StatusFeed::consumer),
            .developerWatch = watchedSpans(store.state(), kit::StatusFeed::developer)};
}

}  // namespace app
