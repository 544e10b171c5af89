#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "NewsroomKit/Alerts/AlertEvent.h"
#include "NewsroomKit/Alerts/AlertRule.h"

/// Invented rules and what they are held against.
namespace kit::samples {

inline Instant alertMinute(int number) {
    return Instant(std::chrono::minutes(28'000'000 + number));
}

inline std::optional<StoryQuery> kNoBeats(const std::string&) { return std::nullopt; }
inline std::vector<const Story*> alone(const Story& story) { return {&story}; }

inline Story newsStory(const std::string& id, const std::string& title,
                       Sourcing sourcing = Sourcing::report) {
    return {.id = id,
            .link = "https://" + id + ".example/story",
            .title = title,
            .publishedAt = alertMinute(0),
            .sourceID = "outlet",
            .sourceName = "Outlet",
            .sourcing = sourcing};
}

inline Signal newsSignal(const std::string& id, SignalKind kind, const std::string& subject,
                         const std::string& title, SignalWeight weight = SignalWeight::notable) {
    return {.id = id, .kind = kind, .subject = subject, .title = title, .weight = weight};
}

inline AlertEvent eventOf(std::variant<Story, Signal> subject, Instant at = alertMinute(0)) {
    return {.at = at, .subject = std::move(subject)};
}

inline AlertRule ruleOn(AlertTrigger trigger, AlertDelivery delivery = {}) {
    return {.id = "r", .name = "Rule", .trigger = std::move(trigger), .delivery = delivery};
}

}  // namespace kit::samples
