#pragma once

#include <QObject>
#include <QQmlEngine>

#include "Tarnwick_Brell/Interface/Controls/InstallControls.h"

class ControlsSetup : public QObject {
    Q_OBJECT
public slots:
    void qmlEngineAvailable(QQmlEngine* engine) { app::installControls(*engine); }
};
