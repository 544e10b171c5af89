#pragma once

#include <QFileDialog>
#include <QPointer>

#include "Tarnwick_Brell/Window/DeskWindows.h"

namespace app {

/// Shows the desktop's file dialog when a sheet wants a file. Needs a QApplication.
class FileDialog : public QObject {
    Q_OBJECT
public:
    explicit FileDialog(DeskWindows& windows, QObject* parent = nullptr);

private:
    void show(WindowModel* model, const FileWish& wish);

    QPointer<QFileDialog> shown_;
};

}  // namespace app
