#include "Tarnwick_Brell/Window/DeskPresence.h"

#include <chrono>
#include <utility>

#include <QCoreApplication>
#include <QTimer>

#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/Settings/TraySetting.h"

namespace app {

namespace {

using namespace std::chrono_literals;

/// The bus may have to start the notification service.
constexpr auto kNotifierStarts = 5s;

}  // namespace

DeskPresence::DeskPresence(const DeskStores& stores, DeskWindows& windows, Notifier& notifier)
    : defaults_(stores.defaults),
      windows_(windows),
      notifier_(notifier),
      tray_(stores),
      icon_(tray_),
      fileDialog_(windows) {
    const auto raise = [this] { windows_.raise({}); };
    connect(&icon_, &TrayIcon::openWanted, this, raise);
    connect(&icon_, &TrayIcon::storyWanted, this, [this, raise](const QString& storyID) {
        openTarget(windows_.model(),
                   {.kind = NotificationTarget::Kind::story, .id = storyID.toStdString()});
        raise();
    });
    connect(&icon_, &TrayIcon::statusWanted, this, [this, raise] {
        openTarget(windows_.model(), {.kind = NotificationTarget::Kind::tracker, .id = "status"});
        raise();
    });
    connect(&icon_, &TrayIcon::refreshWanted, this,
            [this] { windows_.model().refresh()->refresh(); });
    connect(&icon_, &TrayIcon::quitWanted, qApp, &QCoreApplication::quit);
    auto& first = windows_.first();
    const auto count = [this, &first] { tray_.setUnread(first.sidebar()->unread()); };
    connect(first.sidebar(), &SidebarModel::changed, this, count);
    count();
    windows_.setCloseRule([this] { return mayClose(); });
    connect(&notifier_, &Notifier::availabilityChanged, this, &DeskPresence::checkNotifications);
    QTimer::singleShot(kNotifierStarts, this, &DeskPresence::checkNotifications);
}

bool DeskPresence::mayClose() {
    if (!icon_.isShown()) return true;
    switch (closeToTray(defaults_)) {
        case CloseToTray::no: return true;
        case CloseToTray::ask: return !windows_.model().showSheet(QStringLiteral("close-to-tray"));
        case CloseToTray::yes: break;
    }
    windows_.hide();
    return false;
}

/// Said once: the desktop without the service stays as it is.
void DeskPresence::checkNotifications() {
    const bool isWanted = defaults_.isOn(SettingKey::kNotifications);
    if (!isWanted || notifier_.isAvailable() || std::exchange(hasSaidUnavailable_, true)) return;
    emit windows_.model().noticed(
        tr("Notifications can't be shown: this desktop has no notification service."));
}

}  // namespace app
