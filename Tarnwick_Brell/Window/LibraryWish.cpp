#include "Tarnwick_Brell/Window/LibraryWish.h"

#include <utility>

#include <QEventLoop>
#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Settings/LibraryWorkModel.h"
#include "Tarnwick_Brell/Window/NoticeWindow.h"
#include "Tarnwick_Brell/Window/SingleInstance.h"

namespace app {

bool fulfil(LibraryWish& wish, const Paths& paths, kit::Clock clock) {
    auto work = std::exchange(wish.work, std::nullopt);
    LibraryWorkModel model(*std::move(work), paths.library, std::move(clock),
                           std::string(SingleInstance::kWhat));
    NoticeWindow notice(paths.settings, QStringLiteral("LibraryWorkWindow"),
                        {{QStringLiteral("work"), QVariant::fromValue(&model)}});
    QEventLoop loop;
    QObject::connect(&model, &LibraryWorkModel::finished, &loop, &QEventLoop::quit);
    if (notice.window()) {
        notice.window()->show();
    } else {
        // Nobody could answer.
        QObject::connect(&model, &LibraryWorkModel::changed, &model, &LibraryWorkModel::confirm);
    }
    model.start();
    loop.exec();
    wish.outcome = model.outcome();
    if (!notice.window()) return !wish.outcome.isEmpty();
    // The end of this window is not the end of the program.
    const bool quits = QGuiApplication::quitOnLastWindowClosed();
    QGuiApplication::setQuitOnLastWindowClosed(false);
    notice.window()->hide();
    QGuiApplication::setQuitOnLastWindowClosed(quits);
    return !wish.outcome.isEmpty();
}

}  // namespace app
