#include "NewsroomKit/Panels/EventsContent.h"

#include <algorithm>

#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Trackers/Events/MarkedEvents.h"

namespace kit {

const EventsContent::Event* EventsContent::find(const std::string& id) const {
    for (const auto* list : {&coming, &past, &anniversaries}) {
        for (const auto& each : *list) {
            if (each.event.id == id) return &each;
        }
    }
    return nullptr;
}

EventsContent eventsContent(const CachedValue<std::vector<AppleCalendarEvent>>& events,
                            const std::string& words, const EventsOutlook& outlook) {
    EventsContent content{.condition =
                              PanelCondition::of(events, events.value && !events.value->empty())};
    const auto wanted = fold(words);
    for (const auto& event :
         namedEvents(events.value.value_or(std::vector<AppleCalendarEvent>()), {})) {
        EventsContent::Event entry{.event = event, .row = countdownRow(event, outlook.daysUntil)};
        if (!content.next && canBeNext(entry.row)) content.next = entry;
        if (fold(event.title).find(wanted) == std::string::npos) continue;
        const bool isOver = entry.row.starts && (entry.row.days < 0 || entry.row.isReleased);
        if (isOver) entry.stories = outlook.storiesOnDay(event.starts);
        auto& list = entry.row.isAnniversary ? content.anniversaries
                     : isOver                ? content.past
                                             : content.coming;
        list.push_back(std::move(entry));
    }
    std::ranges::stable_partition(content.coming,
                                  [](const auto& each) { return each.row.starts.has_value(); });
    std::ranges::reverse(content.past);
    return content;
}

}  // namespace kit
