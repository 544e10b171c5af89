#pragma once

#include <chrono>
#include <deque>
#include <map>
#include <optional>
#include <string>

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include "Tarnwick_Brell/Notifications/Notification.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// Shows notifications through the desktop's notification service, which may be absent and may come
/// and go. Lives on the main thread and never blocks it.
class Notifier : public QObject {
    Q_OBJECT
public:
    /// The pause between two notifications: at most three a second, because services refuse too
    /// many at once.
    static constexpr std::chrono::milliseconds kPace{340};
    /// At most this many wait; beyond that the oldest are dropped.
    static constexpr std::size_t kMostWaiting = 60;

    Notifier(const Defaults& defaults, QDBusConnection bus = QDBusConnection::sessionBus());

    /// The service runs, or the bus can start it. False for a moment at first, while that is
    /// unknown.
    bool isAvailable() const { return presence_ == Presence::there; }
    /// True when the user sees notifications: the service is available and they are not switched
    /// off.
    bool isAuthorised() const;

    /// Drops the notification when the user would not see it.
    void post(Notification notification);

signals:
    void availabilityChanged();
    // The user has activated a notification. A notification offers activation only when it has data
    // for a connected signal; the first such signal is emitted.

    /// Show the target in the window. The token grants the right to raise it; empty when the
    /// service gave none.
    void targetActivated(const app::NotificationTarget& target, const QString& activationToken);
    /// Open an http or https address.
    void linkActivated(const QString& link);

private slots:
    // Called by the bus.
    void activationToken(uint number, const QString& token);
    void actionInvoked(uint number, const QString& action);
    void notificationClosed(uint number, uint reason);
    void busGone();

private:
    enum class Presence { unknown, there, absent };

    struct Shown {
        uint number = 0;
        QString link{};
        std::optional<NotificationTarget> target{};
        QString activationToken{};
    };

    void listen();
    void checkOwner();
    void checkActivatable();
    void ownerChanged(const QString& owner);
    void setPresence(Presence presence);
    bool mayPost() const;
    bool showsTarget(const std::optional<NotificationTarget>& target) const;
    bool opensLink(const QString& link) const;
    void sendNext();
    void requestCapabilities();
    void send(const QStringList& capabilities);
    void refused(const QDBusError& error);
    template <class Answered>
    void call(QDBusMessage message, Answered answered);

    const Defaults& defaults_;
    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    Presence presence_ = Presence::unknown;
    bool isActivatable_ = false;
    std::optional<QStringList> capabilities_;  ///< of the running service; requested when needed
    std::deque<Notification> waiting_;
    bool isSending_ = false;              ///< a call to the service is pending
    QTimer pace_;                         ///< runs while the next notification has to wait
    std::map<std::string, Shown> shown_;  ///< by identifier
};

}  // namespace app
