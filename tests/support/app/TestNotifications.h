#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QDBusConnection>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include "tests/support/TemporaryFolder.h"

namespace app::test {

/// A notification service that records its notifications.
class RecordingService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    struct Shown {
        uint number = 0;
        uint replaced = 0;
        QString title{};
        QString body{};
        QStringList actions{};
        QVariantMap hints{};
    };

    RecordingService(QDBusConnection bus, QStringList capabilities);
    ~RecordingService() override;

    std::vector<Shown> shown;

public slots:
    QStringList GetCapabilities() { return capabilities_; }
    uint Notify(const QString& program, uint replaced, const QString& icon, const QString& title,
                const QString& body, const QStringList& actions, const QVariantMap& hints,
                int time);

signals:
    void ActivationToken(uint number, const QString& token);
    void ActionInvoked(uint number, const QString& action);
    void NotificationClosed(uint number, uint reason);

private:
    QDBusConnection bus_;
    QStringList capabilities_;
    uint lastNumber_ = 0;
};

/// A private message bus.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// A new connection each time; unconnected once the bus has ended.
    QDBusConnection connection();
    /// Makes the bus start a notification service that exits at once.
    void offerBrokenService();
    void end();

private:
    ::test::TemporaryFolder folder_;
    QProcess daemon_;
    QString address_;
    QStringList names_;
};

}  // namespace app::test
