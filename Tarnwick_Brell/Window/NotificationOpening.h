#pragma once

#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Notifications/Notification.h"

namespace app {

/// Goes to what a notification is about.
void openTarget(WindowModel& model, const NotificationTarget& target);

}  // namespace app
