#pragma once

#include <QObject>

#include "Tarnwick_Brell/Models/Window/TrayModel.h"
#include "Tarnwick_Brell/Notifications/Notifier.h"
#include "Tarnwick_Brell/Window/DeskWindow.h"
#include "Tarnwick_Brell/Window/TrayIcon.h"

namespace app {

/// The desk on the user's desktop beside its window: the icon in the tray, what closing the window
/// means, and whether notifications can be shown.
class DeskPresence : public QObject {
    Q_OBJECT
public:
    /// All must outlive it.
    DeskPresence(const DeskStores& stores, WindowModel& model, DeskWindow& window,
                 Notifier& notifier);

private:
    /// Whether closing the window ends the desk.
    bool mayClose();
    void checkNotifications();

    const Defaults& defaults_;
    WindowModel& model_;
    DeskWindow& window_;
    Notifier& notifier_;
    TrayModel tray_;
    TrayIcon icon_;
    bool hasSaidUnavailable_ = false;
};

}  // namespace app
