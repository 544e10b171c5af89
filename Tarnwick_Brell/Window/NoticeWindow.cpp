#include "Tarnwick_Brell/Window/NoticeWindow.h"

#include <QQmlComponent>
#include <QUrl>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Interface/Controls/InstallControls.h"

extern void qml_register_types_TarnwickBrell_Window();

namespace app {

NoticeWindow::NoticeWindow(const std::filesystem::path& settings, const QString& name,
                           QVariantMap properties)
    : defaults_(settings), appearance_(defaults_) {
    // Naming it keeps the linker from leaving out the module's types.
    [[maybe_unused]] void (*volatile types)() = &qml_register_types_TarnwickBrell_Window;
    installControls(engine_);
    QQmlComponent component(
        &engine_, QUrl(QStringLiteral("qrc:/qt/qml/TarnwickBrell/Window/%1.qml").arg(name)));
    properties[QStringLiteral("appearance")] = QVariant::fromValue(&appearance_);
    auto* made = component.createWithInitialProperties(properties);
    window_.reset(qobject_cast<QQuickWindow*>(made));
    if (window_) return;
    kit::log(kit::LogCategory::window, kit::LogLevel::error, "{}",
             component.errorString().toStdString());
    delete made;
}

}  // namespace app
