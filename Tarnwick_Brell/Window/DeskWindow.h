#pragma once

#include <functional>
#include <memory>
#include <utility>

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QString>

#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Notifications/Notification.h"

namespace app {

class AppEnvironment;
class PictureLoader;

/// The stores of an environment that the window shows. The environment must outlive it.
DeskStores windowStores(AppEnvironment& environment, UndoStack& undo, kit::Clock clock);

/// Shows the subject of a notification.
void openTarget(WindowModel& model, const NotificationTarget& target);

/// A window of the desk: makes it from QML and raises it.
class DeskWindow : public QObject {
    Q_OBJECT
public:
    /// Both must outlive it. The loader is on while the model shows pictures. Throws
    /// std::runtime_error when the QML does not load.
    DeskWindow(WindowModel& model, PictureLoader& pictures);
    ~DeskWindow() override;

    QQuickWindow& window() { return *window_; }
    /// Asked when the user closes the window: false keeps it. Quitting does not ask.
    void setCloseRule(std::function<bool()> mayClose) { mayClose_ = std::move(mayClose); }
    /// The program is ending, and its windows close with it.
    bool isQuitting() const { return isQuitting_; }
    void show();
    /// Brings the window to the front, with the desktop's activation token for doing so.
    void raise(const QString& activationToken);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool mirrorsKey(QEvent& event);
    bool hasTextFocus() const;
    void installPictures(PictureLoader& pictures);

    WindowModel& model_;
    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
    std::function<bool()> mayClose_;
    bool isQuitting_ = false;
    bool isMirroring_ = false;
};

}  // namespace app
