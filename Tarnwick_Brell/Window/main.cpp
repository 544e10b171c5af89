#include <cstdio>
#include <exception>
#include <memory>
#include <optional>
#include <string>

#include <QApplication>
#include <QDesktopServices>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QIcon>
#include <QUrl>
#include <fmt/format.h>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Arguments/Arguments.h"
#include "Tarnwick_Brell/Models/Window/ReaderPresence.h"
#include "Tarnwick_Brell/Pictures/PictureLoader.h"
#include "Tarnwick_Brell/Shell/AppEnvironment.h"
#include "Tarnwick_Brell/Shell/DeskOptions.h"
#include "Tarnwick_Brell/Shell/LaunchContext.h"
#include "Tarnwick_Brell/Shell/ShutdownSignals.h"
#include "Tarnwick_Brell/Window/DeskPresence.h"
#include "Tarnwick_Brell/Window/DeskWindows.h"
#include "Tarnwick_Brell/Window/LibraryWish.h"
#include "Tarnwick_Brell/Window/SingleInstance.h"
#include "Tarnwick_Brell/Window/StartFailure.h"
#include "Tarnwick_Brell/Window/StoryPrinter.h"
#include "Tarnwick_Brell/Window/Translations.h"

namespace {

using namespace app;

void warn(const std::string& sentence) {
    fmt::print(stderr, "tarnwick-brell: {}\n", sentence);
    kit::log(kit::LogCategory::window, kit::LogLevel::error, "{}", sentence);
}

std::unique_ptr<QGuiApplication> makeApplication(int& count, char** words) {
    QGuiApplication::setDesktopFileName(QStringLiteral("tarnwick-brell"));
    // The tray's icon with its menu, and the dialog for printing, are widgets.
    auto application = std::make_unique<QApplication>(count, words);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/tarnwick-brell.svg")));
    installTranslations();
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Tarnwick Brell"));
    // The window can show boxes only. Names of families are there even without a font.
    if (!QFontMetrics(QGuiApplication::font()).inFont(u'A'))
        warn("No font is installed, so texts can't be shown. Install one, such as fonts-inter.");
    return application;
}

/// Whoever starts the program from a menu does not read standard error. `tried` is how an attempt
/// to help ended. Returns what the user wants done before the program starts again.
std::optional<LibraryWork> refuse(const std::exception& error, const Paths& paths, int& count,
                                  char** words, const QString& tried = {}) {
    auto failure = startFailure(error, paths);
    warn(failure.reason.toStdString());
    if (!tried.isEmpty()) failure.help = tried;
    if (!needsFailureWindow()) return std::nullopt;
    std::unique_ptr<QGuiApplication> application;
    std::optional<ShutdownSignals> stop;
    if (!qApp) {
        application = makeApplication(count, words);
        stop.emplace([] { QGuiApplication::quit(); });
    }
    return showStartFailure(failure, paths);
}

/// Through the desktop's opener; never a shell.
void openInBrowser(const QString& link) { QDesktopServices::openUrl(QUrl(link)); }

int runWindow(AppEnvironment& environment, SingleInstance& instance, PictureLoader& pictures,
              LibraryWish& wish) {
    instance.listen();
    UndoStack undo;
    const auto stores = windowStores(environment, undo, &currentInstant);
    DeskWindows windows(stores, pictures);
    QObject::connect(&environment.newsDesk(), &NewsDesk::networkReturned, &windows,
                     [&] { pictures.forgetFailures(); });
    QObject::connect(&windows, &DeskWindows::linkWanted, &openInBrowser);
    QObject::connect(&windows, &DeskWindows::libraryWorkWanted, &windows,
                     [&](const LibraryWork& work) {
                         wish.work = work;
                         QGuiApplication::quit();
                     });
    QObject::connect(&environment.notifier(), &Notifier::targetActivated, &windows,
                     [&](const NotificationTarget& target, const QString& activationToken) {
                         openTarget(windows.model(), target);
                         windows.raise(activationToken);
                     });
    QObject::connect(&instance, &SingleInstance::raiseWanted, &windows, &DeskWindows::raise);
    ReaderPresence presence(&currentInstant,
                            [&](auto moment) { environment.newsDesk().markLeft(moment); });
    QObject::connect(&windows, &DeskWindows::visibilityChanged, &presence,
                     [&] { presence.setVisible(windows.isVisible()); });
    QObject::connect(
        qGuiApp, &QGuiApplication::applicationStateChanged, &presence,
        [&](Qt::ApplicationState state) { presence.setFocused(state == Qt::ApplicationActive); });
    const StoryPrinter printer(windows);
    DeskPresence desktop(stores, windows, environment.notifier());
    windows.show();
    if (!wish.outcome.isEmpty()) emit windows.model().noticed(wish.outcome);
    // The window first: its first frame must not wait for the library.
    QMetaObject::invokeMethod(qApp, [&] { environment.start(); }, Qt::QueuedConnection);
    const int status = QGuiApplication::exec();
    presence.setVisible(false);
    return status;
}

int start(int& count, char** words, const DeskOptions& options) {
    LaunchContext launch(options, currentInstant());
    const ProgramLog log(launch.log());
    SingleInstance instance(launch.paths().library);
    if (instance.raiseFirst()) return 0;
    const auto network = launch.network(&warn);
    const auto application = makeApplication(count, words);
    // The end of a session and Ctrl-C close the library as the window's own end does.
    const ShutdownSignals stop([] { QGuiApplication::quit(); });
    PictureLoader pictures({.folder = launch.paths().pictures, .network = network});
    LibraryWish wish;
    while (true) {
        int status = 1;
        try {
            AppEnvironment environment({.paths = launch.paths(),
                                        .network = network,
                                        .clock = &currentInstant,
                                        .what = SingleInstance::kWhat});
            status = runWindow(environment, instance, pictures, wish);
        } catch (const std::exception& error) {
            // Here, while the log is still open.
            wish.work = refuse(error, launch.paths(), count, words, wish.outcome);
        }
        if (!wish.work || !fulfil(wish, launch.paths(), &currentInstant)) return status;
    }
}

}  // namespace

int main(int argc, char** argv) {
    arguments::Parser parser("tarnwick-brell",
                             "A news desk for people who follow Apple closely: its window.");
    DeskOptions options;
    auto program = parser.root();
    addDeskOptions(program, options);
    try {
        if (const auto text = parser.parse(argc, argv)) {
            fmt::print("{}", *text);
            return 0;
        }
    } catch (const arguments::UsageError& error) {
        refuse(error, Paths::forUser(options.dataDir), argc, argv);
        return 2;
    }
    try {
        return start(argc, argv, options);
    } catch (const std::exception& error) {
        refuse(error, Paths::forUser(options.dataDir), argc, argv);
        return 1;
    }
}
