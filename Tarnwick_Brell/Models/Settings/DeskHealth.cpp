#include "Tarnwick_Brell/Models/Settings/DeskHealth.h"

#include <array>
#include <filesystem>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QLocale>
#include <QStringList>

#include "Tarnwick_Brell/Desk/NewsDesk.h"

namespace app {

namespace {

struct DeskHealth {
    Q_DECLARE_TR_FUNCTIONS(DeskHealth)
};

/// A service of the desktop, by its name on the session bus.
struct DesktopService {
    const char* name;
    const char* title;
    const char* present;
    const char* absent;
};

// clang-format off
constexpr std::array<DesktopService, 3> kServices{{
    {"org.freedesktop.Notifications", QT_TRANSLATE_NOOP("DeskHealth", "Notifications"),
     QT_TRANSLATE_NOOP("DeskHealth", "The desktop shows them."),
     QT_TRANSLATE_NOOP("DeskHealth", "The desktop has no notification service. Install one, such as dunst.")},
    {"org.kde.StatusNotifierWatcher", QT_TRANSLATE_NOOP("DeskHealth", "Tray"),
     QT_TRANSLATE_NOOP("DeskHealth", "The desktop has a tray."),
     QT_TRANSLATE_NOOP("DeskHealth", "The desktop has no tray, so closing the window ends the desk. GNOME needs an extension for it.")},
    {"org.freedesktop.portal.Desktop", QT_TRANSLATE_NOOP("DeskHealth", "Light or dark of the desktop"),
     QT_TRANSLATE_NOOP("DeskHealth", "The settings portal reports it."),
     QT_TRANSLATE_NOOP("DeskHealth", "There is no settings portal. Install xdg-desktop-portal, or choose light or dark under Appearance.")},
}};
// clang-format on

constexpr int kBusPatience = 300;  // ms
/// Backups need room for several copies of the library.
constexpr std::uintmax_t kLittleRoom = 1'000'000'000;

SettingRow healthFact(const QString& title, const QString& text) {
    return {.title = title, .meaning = text, .control = SettingControl::Fact};
}

/// Names that have an owner, or a service that the bus would start for them.
QStringList namesOnBus(const QDBusConnection& bus) {
    QStringList names;
    for (const auto* method : {"ListNames", "ListActivatableNames"}) {
        const auto call = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QString::fromLatin1(method));
        const auto answer = bus.call(call, QDBus::Block, kBusPatience);
        if (!answer.arguments().isEmpty()) names += answer.arguments().constFirst().toStringList();
    }
    return names;
}

QString roomText(const std::filesystem::path& library) {
    std::error_code error;
    const auto space = std::filesystem::space(library.parent_path(), error);
    if (error) return DeskHealth::tr("The room on the disk is not known.");
    const auto room = QLocale().formattedDataSize(static_cast<qint64>(space.available), 1,
                                                  QLocale::DataSizeSIFormat);
    return space.available < kLittleRoom
               ? DeskHealth::tr("Only %1 are free. Backups may fail: make room.").arg(room)
               : DeskHealth::tr("%1 are free.").arg(room);
}

}  // namespace

std::vector<SettingRow> healthFacts(const DeskStores& stores) {
    std::vector<SettingRow> facts;
    const auto bus = QDBusConnection::sessionBus();
    const auto names = bus.isConnected() ? namesOnBus(bus) : QStringList();
    if (names.isEmpty()) {
        facts.push_back(healthFact(
            DeskHealth::tr("Session bus"),
            DeskHealth::tr("It does not answer, so there are no notifications and no tray. Start "
                           "the desk within a desktop session.")));
    } else {
        for (const auto& service : kServices) {
            const bool isThere = names.contains(QLatin1String(service.name));
            facts.push_back(healthFact(DeskHealth::tr(service.title),
                                       DeskHealth::tr(isThere ? service.present : service.absent)));
        }
    }
    facts.push_back(healthFact(DeskHealth::tr("Room on the disk"), roomText(stores.library)));
    facts.push_back(healthFact(
        DeskHealth::tr("Clock"),
        stores.news.clockSeemsWrong()
            ? DeskHealth::tr("It differs from those of most servers by more than a day. Set it.")
            : DeskHealth::tr("It agrees with those of the servers.")));
    return facts;
}

}  // namespace app
