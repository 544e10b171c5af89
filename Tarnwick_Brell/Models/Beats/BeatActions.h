#pragma once

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

/// What can be done with a beat as a whole. Beats are named by the keys of their places. Every
/// change is a step of the undo stack.
class BeatActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one.")

public:
    explicit BeatActions(const DeskStores& stores, QObject* parent = nullptr);

    /// Asks for its sheet.
    Q_INVOKABLE void edit(const QString& key);
    /// Asks for the sheet of a new rule on its stories.
    Q_INVOKABLE void makeAlert(const QString& key);
    /// Leads to the timeline of its stories.
    Q_INVOKABLE void showTimeline(const QString& key);
    /// Moves it up or down in the user's order.
    Q_INVOKABLE void moveBy(const QString& key, int steps);
    /// Moves it to the place of another one.
    Q_INVOKABLE void moveOnto(const QString& key, const QString& other);
    Q_INVOKABLE void remove(const QString& key);

signals:
    void sheetWanted(const QString& key);
    void placeWanted(const QString& key);

private:
    DeskStores stores_;
};

}  // namespace app
