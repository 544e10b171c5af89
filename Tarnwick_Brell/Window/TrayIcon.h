#pragma once

#include <memory>

#include <QMenu>
#include <QObject>
#include <QString>
#include <QSystemTrayIcon>
#include <QTimer>

#include "Tarnwick_Brell/Models/Window/TrayModel.h"

namespace app {

/// The desk's icon in the desktop's tray, as soon as there is a tray. Needs a QApplication.
class TrayIcon : public QObject {
    Q_OBJECT
public:
    /// The model must outlive it.
    explicit TrayIcon(TrayModel& model, QObject* parent = nullptr);
    ~TrayIcon() override;

    bool isShown() const { return icon_ && icon_->isVisible(); }

signals:
    void openWanted();
    void storyWanted(const QString& storyID);
    void statusWanted();
    void refreshWanted();
    void quitWanted();

private:
    void showWhenPossible();
    void fill();
    void addQuiet();

    TrayModel& model_;
    std::unique_ptr<QMenu> menu_;
    std::unique_ptr<QSystemTrayIcon> icon_;
    QTimer looking_;
};

}  // namespace app
