#include "NewsroomKit/Trackers/AppleCalendarEvent.h"

#include "NewsroomKit/Text/Unicode.h"

namespace newsroom {

bool AppleCalendarEvent::isAnniversary() const {
    return lowercasedASCII(title).find("anniversary") != std::string::npos;
}

}  // namespace newsroom
