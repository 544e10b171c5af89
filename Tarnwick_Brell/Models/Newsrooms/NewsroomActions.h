#pragma once

#include <functional>
#include <string>

#include <QObject>
#include <QString>
#include <QStringList>
#include <qqmlregistration.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomSteps.h"

namespace app {

/// What can be done with a newsroom as a whole. Newsrooms are named by the keys of their places.
/// Every change is a step of the undo stack.
class NewsroomActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one.")
    Q_PROPERTY(QList<QString> symbols READ symbols CONSTANT)

public:
    explicit NewsroomActions(const DeskStores& stores, QObject* parent = nullptr);

    QStringList symbols() const;

    /// Gives it a name, which must not be that of another one.
    Q_INVOKABLE void rename(const QString& key, const QString& name);
    Q_INVOKABLE void setSymbol(const QString& key, const QString& symbol);
    /// Moves it up or down in the user's order.
    Q_INVOKABLE void moveBy(const QString& key, int steps);
    /// Moves it to the place of another one.
    Q_INVOKABLE void moveOnto(const QString& key, const QString& other);
    /// Asks for the sheet with its focus.
    Q_INVOKABLE void openFocus(const QString& key);
    /// Whether the board pages to it; see BoardNewsrooms.h.
    Q_INVOKABLE bool isOnBoard(const QString& key) const;
    Q_INVOKABLE void setOnBoard(const QString& key, bool on);
    Q_INVOKABLE void duplicate(const QString& key);
    /// Writes it to a file in the user's folder of downloads.
    Q_INVOKABLE void exportFile(const QString& key);
    Q_INVOKABLE void remove(const QString& key);

signals:
    /// A sentence for the user.
    void noticed(const QString& sentence);
    void placeWanted(const QString& key);
    void sheetWanted(const QString& key);

private:
    void edit(const QString& key, const QString& text,
              const std::function<void(kit::NewsroomSpec&)>& change);

    DeskStores stores_;
    NewsroomSteps steps_;
};

}  // namespace app
