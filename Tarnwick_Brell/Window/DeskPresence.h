#pragma once

#include <QObject>

#include "Tarnwick_Brell/Models/Window/TrayModel.h"
#include "Tarnwick_Brell/Notifications/Notifier.h"
#include "Tarnwick_Brell/Window/DeskWindows.h"
#include "Tarnwick_Brell/Window/FileDialog.h"
#include "Tarnwick_Brell/Window/TrayIcon.h"

namespace app {

/// The desk on the user's desktop beside its windows: the icon in the tray, what closing the last
/// window means, the file dialog, and whether notifications can be shown.
class DeskPresence : public QObject {
    Q_OBJECT
public:
    /// All must outlive it.
    DeskPresence(const DeskStores& stores, DeskWindows& windows, Notifier& notifier);

private:
    /// Whether closing the last window ends the desk.
    bool mayClose();
    void checkNotifications();

    const Defaults& defaults_;
    DeskWindows& windows_;
    Notifier& notifier_;
    TrayModel tray_;
    TrayIcon icon_;
    FileDialog fileDialog_;
    bool hasSaidUnavailable_ = false;
};

}  // namespace app
