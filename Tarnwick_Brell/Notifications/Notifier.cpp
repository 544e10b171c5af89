#include "Tarnwick_Brell/Notifications/Notifier.h"

#include <algorithm>
#include <utility>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMetaMethod>
#include <QUrl>
#include <QVariantMap>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kBusService = QStringLiteral("org.freedesktop.DBus");
const QString kBusPath = QStringLiteral("/org/freedesktop/DBus");
// The name of the desk's desktop file, by which services find its name and icon.
const QString kDesktopEntry = QStringLiteral("tarnwick-brell");
const QString kDefaultAction = QStringLiteral("default");
// The service decides how long a notification stays.
constexpr int kUsualTime = -1;
// Long enough for the bus to start a service.
constexpr int kAnswerMilliseconds = 20'000;

QDBusMessage serviceCall(const QString& method) {
    return QDBusMessage::createMethodCall(kService, kPath, kService, method);
}

QDBusMessage busCall(const QString& method) {
    return QDBusMessage::createMethodCall(kBusService, kBusPath, kBusService, method);
}

QString encodedLink(const std::string& link) {
    return QUrl(openableLink(link)).toString(QUrl::FullyEncoded);
}

QVariantMap hints(bool withSound, const QString& link) {
    QVariantMap hints{{QStringLiteral("urgency"), QVariant::fromValue(uchar{1})},
                      {QStringLiteral("desktop-entry"), kDesktopEntry}};
    if (withSound) {
        hints.insert(QStringLiteral("sound-name"), QStringLiteral("message-new-instant"));
    } else {
        hints.insert(QStringLiteral("suppress-sound"), true);
    }
    // For programs that store notifications; services ignore unknown hints.
    if (!link.isEmpty()) {
        hints.insert(QStringLiteral("x-tarnwick-brell-link"),
                     QString::fromStdString(kit::maskedLogins(link.toStdString())));
    }
    return hints;
}

}  // namespace

Notifier::Notifier(const Defaults& defaults, QDBusConnection bus)
    : defaults_(defaults), bus_(std::move(bus)) {
    pace_.setSingleShot(true);
    connect(&pace_, &QTimer::timeout, this, &Notifier::sendNext);
    if (bus_.isConnected()) {
        listen();
    } else {
        presence_ = Presence::absent;
    }
}

void Notifier::listen() {
    watcher_.setConnection(bus_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    watcher_.addWatchedService(kService);
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) { ownerChanged(owner); });
    bus_.connect(kService, kPath, kService, QStringLiteral("ActivationToken"), this,
                 SLOT(activationToken(uint, QString)));
    bus_.connect(kService, kPath, kService, QStringLiteral("ActionInvoked"), this,
                 SLOT(actionInvoked(uint, QString)));
    bus_.connect(kService, kPath, kService, QStringLiteral("NotificationClosed"), this,
                 SLOT(notificationClosed(uint, uint)));
    bus_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                 SLOT(busGone()));
    checkActivatable();
}

/// Calls without waiting; `answered` gets the reply or the error.
template <class Answered>
void Notifier::call(QDBusMessage message, Answered answered) {
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(message, kAnswerMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [watcher, answered = std::move(answered)] {
                watcher->deleteLater();
                answered(*watcher);
            });
}

void Notifier::checkActivatable() {
    call(busCall(QStringLiteral("ListActivatableNames")),
         [this](const QDBusPendingReply<QStringList>& names) {
             isActivatable_ = !names.isError() && names.value().contains(kService);
             checkOwner();
         });
}

void Notifier::checkOwner() {
    auto question = busCall(QStringLiteral("NameHasOwner"));
    question << kService;
    call(question, [this](const QDBusPendingReply<bool>& owned) {
        // The watcher may have reported meanwhile.
        if (presence_ != Presence::unknown) return;
        const bool isThere = isActivatable_ || (!owned.isError() && owned.value());
        setPresence(isThere ? Presence::there : Presence::absent);
    });
}

void Notifier::ownerChanged(const QString& owner) {
    // Notification numbers and capabilities belonged to the previous service.
    capabilities_.reset();
    shown_.clear();
    const bool isThere = isActivatable_ || !owner.isEmpty();
    setPresence(isThere ? Presence::there : Presence::absent);
}

void Notifier::busGone() {
    isActivatable_ = false;
    ownerChanged({});
}

void Notifier::setPresence(Presence presence) {
    const bool wasAvailable = isAvailable();
    presence_ = presence;
    if (!mayPost()) waiting_.clear();
    if (isAvailable() != wasAvailable) {
        kit::log(kit::LogCategory::notifications, kit::LogLevel::info,
                 "the desktop's notification service is {}", isAvailable() ? "there" : "gone");
        emit availabilityChanged();
    }
    sendNext();
}

bool Notifier::mayPost() const {
    return presence_ != Presence::absent && defaults_.isOn(SettingKey::kNotifications);
}

bool Notifier::isAuthorised() const {
    return isAvailable() && defaults_.isOn(SettingKey::kNotifications);
}

void Notifier::post(Notification notification) {
    if (!mayPost()) return;
    const auto same =
        std::ranges::find(waiting_, notification.identifier, &Notification::identifier);
    if (same != waiting_.end()) {
        *same = std::move(notification);
        return;
    }
    if (waiting_.size() == kMostWaiting) waiting_.pop_front();
    waiting_.push_back(std::move(notification));
    sendNext();
}

void Notifier::sendNext() {
    // Notifications may have been switched off since.
    if (!mayPost()) waiting_.clear();
    if (waiting_.empty() || !isAvailable() || isSending_ || pace_.isActive()) return;
    if (capabilities_) {
        send(*capabilities_);
    } else {
        requestCapabilities();
    }
}

void Notifier::requestCapabilities() {
    isSending_ = true;
    call(serviceCall(QStringLiteral("GetCapabilities")),
         [this](const QDBusPendingReply<QStringList>& answer) {
             isSending_ = false;
             if (answer.isError()) {
                 refused(answer.error());
             } else {
                 capabilities_ = answer.value();
             }
             // A service that does not answer may still accept a plain notification.
             if (isAvailable() && !waiting_.empty()) send(capabilities_.value_or(QStringList()));
         });
}

bool Notifier::showsTarget(const std::optional<NotificationTarget>& target) const {
    return target && isSignalConnected(QMetaMethod::fromSignal(&Notifier::targetActivated));
}

bool Notifier::opensLink(const QString& link) const {
    return !link.isEmpty() && isSignalConnected(QMetaMethod::fromSignal(&Notifier::linkActivated));
}

/// Sends the first waiting notification.
void Notifier::send(const QStringList& capabilities) {
    const auto notification = std::move(waiting_.front());
    waiting_.pop_front();
    const auto former = shown_.find(notification.identifier);
    const uint replaced = former == shown_.end() ? 0 : former->second.number;
    const auto body = bodyText(notification.body);
    const auto link = encodedLink(notification.link);
    const bool isMarkup = capabilities.contains(u"body-markup");
    const bool opens =
        capabilities.contains(u"actions") && (showsTarget(notification.target) || opensLink(link));
    const auto actions =
        opens ? QStringList{kDefaultAction, QStringLiteral("Open")} : QStringList();
    auto message = serviceCall(QStringLiteral("Notify"));
    message << QStringLiteral("Tarnwick Brell") << replaced << kDesktopEntry
            << titleText(notification.title) << (isMarkup ? body.toHtmlEscaped() : body) << actions
            << hints(notification.withSound, link) << kUsualTime;
    isSending_ = true;
    call(message, [this, notification, link](const QDBusPendingReply<uint>& number) {
        isSending_ = false;
        pace_.start(kPace);
        if (number.isError()) {
            refused(number.error());
        } else {
            kit::log(kit::LogCategory::notifications, kit::LogLevel::info, "posted {}",
                     notification.identifier);
            shown_[notification.identifier] = {
                .number = number.value(), .link = link, .target = notification.target};
        }
    });
}

/// Drops a notification that could not be delivered: later it would be no news.
void Notifier::refused(const QDBusError& error) {
    kit::log(kit::LogCategory::notifications, kit::LogLevel::warning,
             "the service refused a notification: {}", error.message().toStdString());
    // A service that can't be started won't start for the next notification either.
    const bool isGone = error.type() == QDBusError::ServiceUnknown ||
                        error.name().startsWith(u"org.freedesktop.DBus.Error.Spawn");
    if (!isGone) return;
    isActivatable_ = false;
    ownerChanged({});
}

/// Services that support tokens send one before the action it belongs to.
void Notifier::activationToken(uint number, const QString& token) {
    for (auto& [identifier, shown] : shown_) {
        if (shown.number == number) shown.activationToken = token;
    }
}

void Notifier::actionInvoked(uint number, const QString& action) {
    if (action != kDefaultAction) return;
    const auto entry = std::ranges::find_if(
        shown_, [&](const auto& each) { return each.second.number == number; });
    if (entry == shown_.end()) return;
    // A copy, because a receiver may post and so change shown_.
    const auto shown = entry->second;
    if (showsTarget(shown.target)) {
        emit targetActivated(*shown.target, shown.activationToken);
    } else if (opensLink(shown.link)) {
        emit linkActivated(shown.link);
    }
}

void Notifier::notificationClosed(uint number, uint) {
    std::erase_if(shown_, [&](const auto& entry) { return entry.second.number == number; });
}

}  // namespace app
