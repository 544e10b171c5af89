#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/CountdownContent.h"
#include "NewsroomKit/Panels/PanelCondition.h"

namespace kit {

/// The calendar as a page: what comes, what was, and anniversaries.
struct EventsContent {
    struct Event {
        AppleCalendarEvent event{};
        CountdownRow row{};
        std::size_t stories = 0;  ///< of a past event's day, in the library
    };

    PanelCondition condition{};
    std::optional<Event> next{};         ///< also the first of `coming` with a date
    std::vector<Event> coming{};         ///< the earliest first, those without a date last
    std::vector<Event> past{};           ///< the last first
    std::vector<Event> anniversaries{};  ///< the earliest first

    const Event* find(const std::string& id) const;
};

/// What a calendar of the reader's zone and the library add to the events.
struct EventsOutlook {
    std::function<int(Instant)> daysUntil;             ///< whole days from today
    std::function<std::size_t(Instant)> storiesOnDay;  ///< of that moment
};

EventsContent eventsContent(const CachedValue<std::vector<AppleCalendarEvent>>& events,
                            const std::string& words, const EventsOutlook& outlook);

}  // namespace kit
