#include "Tarnwick_Brell/Window/StartFailure.h"

#include <cstdlib>
#include <string>
#include <string_view>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QUrl>
#include <unistd.h>

#include "Tarnwick_Brell/Arguments/Arguments.h"
#include "Tarnwick_Brell/Shell/LaunchContext.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryLock.h"
#include "Tarnwick_Brell/Window/NoticeWindow.h"
#include "Tarnwick_Brell/Window/SingleInstance.h"
#include "Tarnwick_Brell/Window/SocketCall.h"

namespace app {

namespace {

struct HelpText {
    Q_DECLARE_TR_FUNCTIONS(StartFailure)
};

QString helpFor(StoreError::Reason reason) {
    switch (reason) {
        case StoreError::Reason::unreadable:
        case StoreError::Reason::readOnly:
            return HelpText::tr("Check that the folder is there and that you may write to it.");
        case StoreError::Reason::diskFull:
            return HelpText::tr("Make room on the disk, then open Tarnwick Brell again.");
        case StoreError::Reason::damaged:
            return HelpText::tr(
                "A repair copies what can be read into a new library; you will see what it keeps "
                "before it is made. A backup may be older. Either way the damaged library stays "
                "beside the new one.");
        case StoreError::Reason::newerVersion:
            return HelpText::tr(
                "Install the version of Tarnwick Brell that wrote it, or a later one.");
        case StoreError::Reason::olderVersion:
            return HelpText::tr("Allow writing to the library, then open Tarnwick Brell again.");
        case StoreError::Reason::busy:
        case StoreError::Reason::other: return {};
    }
    std::abort();
}

/// "wayland-0" stands below the user's runtime folder, "/run/…" for itself.
std::string waylandSocket(const std::string& display) {
    const auto* folder = std::getenv("XDG_RUNTIME_DIR");
    return display.starts_with('/') || !folder ? display : std::string(folder) + "/" + display;
}

/// The socket of ":1" or ":1.0"; empty for a display of another computer.
std::string xSocket(std::string_view display) {
    if (!display.starts_with(':')) return {};
    display.remove_prefix(1);
    return "/tmp/.X11-unix/X" + std::string(display.substr(0, display.find('.')));
}

bool isOnScreen(std::string_view platform) {
    return platform.empty() || platform.starts_with("xcb") || platform.starts_with("wayland");
}

bool hasDisplay() {
    const auto variable = [](const char* name) {
        const auto* value = std::getenv(name);
        return std::string(value ? value : "");
    };
    if (!isOnScreen(variable("QT_QPA_PLATFORM"))) return false;
    const auto wayland = variable("WAYLAND_DISPLAY"), x = variable("DISPLAY");
    return (!wayland.empty() && takesConnections(waylandSocket(wayland))) ||
           (!x.empty() && takesConnections(xSocket(x)));
}

}  // namespace

StartFailure startFailure(const std::exception& error, const Paths& paths) {
    StartFailure failure{.reason = QString::fromUtf8(error.what())};
    if (const auto* held = dynamic_cast<const LibraryInUseError*>(&error)) {
        failure.reason = QString::fromStdString(SingleInstance::refusal(*held));
    } else if (const auto* store = dynamic_cast<const StoreError*>(&error)) {
        failure.help = helpFor(store->reason());
        failure.isLibraryDamaged = store->reason() == StoreError::Reason::damaged;
        if (store->reason() != StoreError::Reason::busy)
            failure.folder = paths.library.parent_path();
    } else if (dynamic_cast<const arguments::UsageError*>(&error) ||
               dynamic_cast<const OptionsClash*>(&error)) {
        failure.help = HelpText::tr("Start Tarnwick Brell with other options, or without any.");
    } else {
        failure.help = HelpText::tr("The program's log may say more.");
        failure.folder = paths.log.parent_path();
    }
    std::error_code none;
    const bool isThere = std::filesystem::is_directory(failure.folder, none);
    // --data-dir may be relative, which the desktop's file manager is not to resolve.
    failure.folder = isThere ? std::filesystem::absolute(failure.folder, none) : "";
    return failure;
}

bool needsFailureWindow() { return !isatty(STDERR_FILENO) && hasDisplay(); }

std::optional<LibraryWork> showStartFailure(const StartFailure& failure, const Paths& paths) {
    const auto folder = failure.folder.empty()
                            ? QUrl()
                            : QUrl::fromLocalFile(QString::fromStdString(failure.folder.string()));
    NoticeWindow notice(paths.settings, QStringLiteral("StartFailureWindow"),
                        {{QStringLiteral("reason"), failure.reason},
                         {QStringLiteral("help"), failure.help},
                         {QStringLiteral("folder"), folder},
                         {QStringLiteral("isLibraryDamaged"), failure.isLibraryDamaged}});
    if (!notice.window()) return std::nullopt;
    notice.window()->show();
    QGuiApplication::exec();
    const auto wish = notice.window()->property("wish").toString();
    if (wish == u"repair") return LibraryWork{.kind = LibraryWork::Kind::repair};
    if (wish == u"restore") return LibraryWork{.kind = LibraryWork::Kind::restore};
    return std::nullopt;
}

}  // namespace app
