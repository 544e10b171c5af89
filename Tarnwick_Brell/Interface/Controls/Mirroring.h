#pragma once

#include <QObject>
#include <QQuickItem>
#include <qqmlregistration.h>

namespace app {

/// Whether the language runs from right to left. The window's root is mirrored as a whole then, and
/// what must stay legible mirrors itself back.
class Mirroring : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isOn READ isOn CONSTANT)

public:
    static bool isOn();

    /// By its first letter with a direction.
    Q_INVOKABLE static bool isRightToLeft(const QString& text) { return text.isRightToLeft(); }
    /// QML can't assign to an item's list of transforms after it has been made.
    Q_INVOKABLE static void transform(QQuickItem* item, QObject* scale);
};

}  // namespace app
