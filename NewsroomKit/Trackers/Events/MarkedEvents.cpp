#include "NewsroomKit/Trackers/Events/MarkedEvents.h"

#include <algorithm>

#include "NewsroomKit/Editorial/PhraseMatcher.h"

namespace kit {

namespace {

std::vector<AppleCalendarEvent> selected(const std::vector<AppleCalendarEvent>& events,
                                         const std::vector<std::string>& terms,
                                         bool hasAnniversaries) {
    std::vector<PhraseMatcher> matchers;
    for (const auto& term : terms) {
        PhraseMatcher matcher(term);
        if (!matcher.phrase.empty()) matchers.push_back(std::move(matcher));
    }
    std::vector<AppleCalendarEvent> chosen;
    for (const auto& event : events) {
        const auto title = PhraseMatcher::normalize(event.title);
        const bool isNamed =
            std::any_of(matchers.begin(), matchers.end(),
                        [&](const auto& matcher) { return matcher.matches(title); });
        const bool isWanted = hasAnniversaries || !event.isAnniversary();
        if (matchers.empty() ? isWanted : isNamed) chosen.push_back(event);
    }
    std::ranges::stable_sort(chosen, {}, &AppleCalendarEvent::starts);
    return chosen;
}

}  // namespace

std::vector<AppleCalendarEvent> namedEvents(const std::vector<AppleCalendarEvent>& events,
                                            const std::vector<std::string>& terms) {
    return selected(events, terms, true);
}

std::vector<AppleCalendarEvent> markedEvents(const std::vector<AppleCalendarEvent>& events,
                                             const std::vector<std::string>& terms) {
    return selected(events, terms, false);
}

}  // namespace kit
