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

/// Shows notifications through the desktop's notification service, which need not be there,
/// and may come and go. Lives on the main thread and never waits on it.
class Notifier : public QObject {
    Q_OBJECT
public:
    /// Posting pauses that long between two notifications: services refuse crowds.
    static constexpr std::chrono::milliseconds kPace{300};
    /// So many may wait for their turn; of more, the oldest go untold.
    static constexpr std::size_t kMostWaiting = 60;

    Notifier(const Defaults& defaults, QDBusConnection bus = QDBusConnection::sessionBus());

    /// The service runs, or the bus can start it. Unknown, hence false, for a moment at first.
    bool isAvailable() const { return presence_ == Presence::there; }
    /// The user sees what is posted: the service is available and notifications are not
    /// switched off.
    bool isAuthorised() const;

    /// Drops the notification when it is known that the user would not see it.
    void post(Notification notification);

signals:
    void availabilityChanged();
    // The user has chosen a notification. Only those can be chosen that have something for one
    // of the connected signals; the first of these is emitted.

    /// To be shown in the desk's window. The token is the right to come to the front, empty when
    /// the service gave none.
    void targetActivated(const app::NotificationTarget& target, const QString& activationToken);
    /// An http or https address, to be opened.
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
    void askWhetherOwned();
    void askWhetherActivatable();
    void ownerChanged(const QString& owner);
    void setPresence(Presence presence);
    bool mayPost() const;
    bool showsTarget(const std::optional<NotificationTarget>& target) const;
    bool opensLink(const QString& link) const;
    void sendNext();
    void askCapabilities();
    void send(const QStringList& capabilities);
    void refused(const QDBusError& error);
    template <class Answered>
    void call(QDBusMessage message, Answered answered);

    const Defaults& defaults_;
    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    Presence presence_ = Presence::unknown;
    bool isActivatable_ = false;
    std::optional<QStringList> capabilities_;  ///< of the service that runs; asked when needed
    std::deque<Notification> waiting_;
    bool isSending_ = false;              ///< a call of the service is under way
    QTimer pace_;                         ///< runs while the next one has to wait
    std::map<std::string, Shown> shown_;  ///< by identifier
};

}  // namespace app
