#pragma once

#include <functional>
#include <vector>

#include <QAbstractListModel>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"

namespace app {

struct PlaceMenuRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString symbol MEMBER symbol)

public:
    QString title{};
    QString symbol{};

    bool operator==(const PlaceMenuRow&) const = default;
};

/// What can be done with a place of the sidebar: a list of stories, a source, a tracker.
class PlaceMenu : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    explicit PlaceMenu(const DeskStores& stores, QObject* parent = nullptr);

    QAbstractListModel* rows() { return &rows_; }
    /// Fills the rows for the place with this key. False when nothing can be done with it.
    Q_INVOKABLE bool show(const QString& key);
    Q_INVOKABLE void run(int row);

signals:
    void placeWanted(const QString& key);
    /// A sentence for the user.
    void noticed(const QString& sentence);

private:
    void add(const QString& title, const QString& symbol, std::function<void()> run);
    void addSource(const std::string& id);
    void markRead(const std::string& sourceID);
    void switchOff(const std::string& id);

    DeskStores stores_;
    GadgetListModel<PlaceMenuRow> rows_;
    std::vector<PlaceMenuRow> shown_;
    std::vector<std::function<void()>> commands_;  ///< of the rows
};

}  // namespace app
