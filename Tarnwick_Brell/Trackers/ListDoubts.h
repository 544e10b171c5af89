#pragma once

#include <optional>
#include <vector>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"

/// Services of the network answer with lists that are cut short now and then. What is missing
/// from a list is believed to be gone only when a second answer in a row lacks it.
namespace app {

using kit::AppleCalendarEvent;
using kit::AppleServiceStatus;
using kit::PlatformRelease;

template <class T>
bool saysNothing(const std::vector<T>& list) {
    return list.empty();
}
/// Platforms without any release say nothing.
bool saysNothing(const std::vector<PlatformRelease>& releases);

/// What the answer before has and the latest lacks, as far as that is a wonder: rows of boards
/// and calendars come and go, but a calendar does not lose all of them. Of platforms, it has
/// only the channels that are lacking.
AppleServiceStatus::Services vanished(const AppleServiceStatus::Services& before,
                                      const AppleServiceStatus::Services& latest);
std::vector<PlatformRelease> vanished(const std::vector<PlatformRelease>& before,
                                      const std::vector<PlatformRelease>& latest);
std::vector<AppleCalendarEvent> vanished(const std::vector<AppleCalendarEvent>& before,
                                         const std::vector<AppleCalendarEvent>& latest);

/// The list with what it lacks.
template <class T>
std::vector<T> completed(std::vector<T> list, const std::vector<T>& lacking) {
    list.insert(list.end(), lacking.begin(), lacking.end());
    return list;
}
std::vector<PlatformRelease> completed(std::vector<PlatformRelease> list,
                                       const std::vector<PlatformRelease>& lacking);

/// The latest with what has vanished from it; nothing when nothing has.
template <class T>
std::optional<std::vector<T>> mended(const std::vector<T>& before, const std::vector<T>& latest) {
    const auto lacking = vanished(before, latest);
    if (lacking.empty()) return std::nullopt;
    return completed(latest, lacking);
}

}  // namespace app
