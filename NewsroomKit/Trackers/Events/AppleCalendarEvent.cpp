#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"

#include "NewsroomKit/Text/Unicode.h"

namespace kit {

bool AppleCalendarEvent::isAnniversary() const {
    return lowercasedASCII(title).find("anniversary") != std::string::npos;
}

bool AppleCalendarEvent::isRumored() const {
    // "rumored", "rumoured", "rumor".
    return lowercasedASCII(status).starts_with("rumo");
}

bool AppleCalendarEvent::isOn(Instant now, Instant::duration length) const {
    if (isReleased() || isAnniversary() || isRumored()) return false;
    return starts <= now && now < starts + length;
}

}  // namespace kit
