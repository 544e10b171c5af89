#pragma once

#include <filesystem>
#include <memory>

#include <QQmlEngine>
#include <QQuickWindow>
#include <QString>
#include <QVariantMap>

#include "Tarnwick_Brell/Models/Window/Appearance.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// A small window of the program for as long as there is no desk, by the name of its file in
/// Interface/Window.
class NoticeWindow {
public:
    /// Needs an application object.
    NoticeWindow(const std::filesystem::path& settings, const QString& name,
                 QVariantMap properties);

    /// Null, with the reason in the log, when it can't be made.
    QQuickWindow* window() { return window_.get(); }

private:
    Defaults defaults_;
    Appearance appearance_;
    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
};

}  // namespace app
