#include "tests/support/app/TestNotifications.h"

#include <fstream>
#include <stdexcept>

#include <QDBusMessage>

namespace app::test {

RecordingService::RecordingService(QDBusConnection bus, QStringList capabilities)
    : bus_(std::move(bus)), capabilities_(std::move(capabilities)) {
    bus_.registerObject("/org/freedesktop/Notifications", this,
                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    if (!bus_.registerService("org.freedesktop.Notifications")) {
        throw std::runtime_error("the name of the service is taken");
    }
}

RecordingService::~RecordingService() {
    bus_.unregisterService("org.freedesktop.Notifications");
    bus_.unregisterObject("/org/freedesktop/Notifications");
}

uint RecordingService::Notify(const QString&, uint replaced, const QString&, const QString& title,
                              const QString& body, const QStringList& actions,
                              const QVariantMap& hints, int) {
    const uint number = replaced != 0 ? replaced : ++lastNumber_;
    shown.push_back({number, replaced, title, body, actions, hints});
    return number;
}

PrivateBus::PrivateBus() {
    // Without service folders, so that no installed program is started.
    const auto configuration = folder_.path() / "bus.conf";
    std::ofstream(configuration)
        << "<busconfig><type>session</type><listen>unix:dir=" << folder_.path().string()
        << "</listen><servicedir>" << folder_.path().string()
        << "</servicedir><auth>EXTERNAL</auth><policy context=\"default\">"
           "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/><allow own=\"*\"/>"
           "</policy></busconfig>";
    daemon_.start("dbus-daemon", {"--nofork", "--nosyslog", "--print-address", "--config-file",
                                  QString::fromStdString(configuration.string())});
    if (!daemon_.waitForReadyRead(10'000)) throw std::runtime_error("no message bus: dbus-daemon");
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
}

PrivateBus::~PrivateBus() {
    for (const auto& name : names_) QDBusConnection::disconnectFromBus(name);
    end();
}

QDBusConnection PrivateBus::connection() {
    static int count = 0;
    names_.push_back(QString("harness %1").arg(++count));
    return QDBusConnection::connectToBus(address_, names_.back());
}

void PrivateBus::offerBrokenService() {
    std::ofstream(folder_.path() / "org.freedesktop.Notifications.service")
        << "[D-BUS Service]\nName=org.freedesktop.Notifications\nExec=/bin/false\n";
    connection().call(QDBusMessage::createMethodCall(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ReloadConfig"));
}

void PrivateBus::end() {
    daemon_.kill();
    daemon_.waitForFinished();
}

}  // namespace app::test
