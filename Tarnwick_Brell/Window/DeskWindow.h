#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QString>

#include "Tarnwick_Brell/Models/Window/WindowModel.h"

namespace app {

/// The one window: makes it from QML and raises it.
class DeskWindow : public QObject {
    Q_OBJECT
public:
    /// The model must outlive it. Throws std::runtime_error when the QML does not load.
    explicit DeskWindow(WindowModel& model);
    ~DeskWindow() override;

    QQuickWindow& window() { return *window_; }
    void show();
    /// To the front, with the right to do so that the desktop gave to another start.
    void raise(const QString& activationToken);

private:
    WindowModel& model_;
    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
};

}  // namespace app
