#pragma once

#include <QObject>
#include <QString>

namespace app {

/// The QML file that draws a model: StatusPanel.qml for an app::StatusPanelModel.
inline QString viewFile(const QObject& model) {
    const auto type =
        QString::fromLatin1(model.metaObject()->className()).section(QStringLiteral("::"), -1);
    return type.chopped(QLatin1String("Model").size()) + QStringLiteral(".qml");
}

}  // namespace app
