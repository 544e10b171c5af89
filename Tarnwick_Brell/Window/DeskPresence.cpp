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

DeskPresence::DeskPresence(const DeskStores& stores, WindowModel& model, DeskWindow& window,
                           Notifier& notifier)
    : defaults_(stores.defaults),
      model_(model),
      window_(window),
      notifier_(notifier),
      tray_(stores),
      icon_(tray_) {
    const auto raise = [this] { window_.raise({}); };
    connect(&icon_, &TrayIcon::openWanted, this, raise);
    connect(&icon_, &TrayIcon::storyWanted, this, [this, raise](const QString& storyID) {
        openTarget(model_, {.kind = NotificationTarget::Kind::story, .id = storyID.toStdString()});
        raise();
    });
    connect(&icon_, &TrayIcon::statusWanted, this, [this, raise] {
        openTarget(model_, {.kind = NotificationTarget::Kind::tracker, .id = "status"});
        raise();
    });
    connect(&icon_, &TrayIcon::refreshWanted, model_.refresh(), &RefreshStatus::refresh);
    connect(&icon_, &TrayIcon::quitWanted, qApp, &QCoreApplication::quit);
    const auto count = [this] { tray_.setUnread(model_.sidebar()->unread()); };
    connect(model_.sidebar(), &SidebarModel::changed, this, count);
    count();
    window_.setCloseRule([this] { return mayClose(); });
    connect(&notifier_, &Notifier::availabilityChanged, this, &DeskPresence::checkNotifications);
    QTimer::singleShot(kNotifierStarts, this, &DeskPresence::checkNotifications);
}

bool DeskPresence::mayClose() {
    if (!icon_.isShown()) return true;
    switch (closeToTray(defaults_)) {
        case CloseToTray::no: return true;
        case CloseToTray::ask: return !model_.showSheet(QStringLiteral("close-to-tray"));
        case CloseToTray::yes: break;
    }
    model_.state()->save();
    window_.window().hide();
    return false;
}

/// Said once: the desktop without the service stays as it is.
void DeskPresence::checkNotifications() {
    const bool isWanted = defaults_.isOn(SettingKey::kNotifications);
    if (!isWanted || notifier_.isAvailable() || std::exchange(hasSaidUnavailable_, true)) return;
    emit model_.noticed(
        tr("Notifications can't be shown: this desktop has no notification service."));
}

}  // namespace app
