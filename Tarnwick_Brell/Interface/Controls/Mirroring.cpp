#include "Tarnwick_Brell/Interface/Controls/Mirroring.h"

#include <QGuiApplication>
#include <QQmlListReference>

namespace app {

bool Mirroring::isOn() { return QGuiApplication::isRightToLeft(); }

void Mirroring::transform(QQuickItem* item, QObject* scale) {
    QQmlListReference(item, "transform").append(scale);
}

}  // namespace app
