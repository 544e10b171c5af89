#include "Tarnwick_Brell/Window/DeskWindow.h"

#include <stdexcept>

#include <QQmlComponent>
#include <QVariantMap>

#include "Tarnwick_Brell/Interface/Controls/InstallControls.h"

// Written by the build. Naming them keeps the linker from leaving out the modules' types.
extern void qml_register_types_TarnwickBrell_Models();
extern void qml_register_types_TarnwickBrell_Panels();
extern void qml_register_types_TarnwickBrell_Palette();
extern void qml_register_types_TarnwickBrell_Sidebar();
extern void qml_register_types_TarnwickBrell_Wire();
extern void qml_register_types_TarnwickBrell_Newsrooms();
extern void qml_register_types_TarnwickBrell_Window();

namespace app {

namespace {

void nameModules() {
    for (const auto types :
         {&qml_register_types_TarnwickBrell_Models, &qml_register_types_TarnwickBrell_Panels,
          &qml_register_types_TarnwickBrell_Palette, &qml_register_types_TarnwickBrell_Sidebar,
          &qml_register_types_TarnwickBrell_Wire, &qml_register_types_TarnwickBrell_Newsrooms,
          &qml_register_types_TarnwickBrell_Window}) {
        [[maybe_unused]] void (*volatile kept)() = types;
    }
}

}  // namespace

DeskWindow::DeskWindow(WindowModel& model) : model_(model) {
    nameModules();
    installControls(engine_);
    QQmlComponent main(&engine_, QUrl(QStringLiteral("qrc:/qt/qml/TarnwickBrell/Window/Main.qml")));
    if (main.isError())
        throw std::runtime_error("The window can't be made. " + main.errorString().toStdString());
    auto* made =
        main.createWithInitialProperties({{QStringLiteral("desk"), QVariant::fromValue(&model)}});
    window_.reset(qobject_cast<QQuickWindow*>(made));
    if (!window_) {
        delete made;
        throw std::runtime_error("The window can't be made. " + main.errorString().toStdString());
    }
    model.state()->attach(window_.get());
}

DeskWindow::~DeskWindow() = default;

void DeskWindow::show() {
    model_.state()->isMaximised() ? window_->showMaximized() : window_->show();
}

void DeskWindow::raise(const QString& activationToken) {
    if (!activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    if (window_->windowStates() & Qt::WindowMinimized) window_->showNormal();
    if (!window_->isVisible()) show();
    window_->raise();
    window_->requestActivate();
}

}  // namespace app
