#pragma once

#include <string>
#include <vector>

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

namespace app {

/// A device that can be chosen.
struct DeviceChoice {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString identifier MEMBER identifier)
    Q_PROPERTY(bool isChosen MEMBER isChosen)

public:
    QString name{};
    QString identifier{};
    bool isChosen = false;

    bool operator==(const DeviceChoice&) const = default;
};

/// Chooses the devices whose firmware signing is followed, among those that the desk has heard of;
/// others are added by their identifiers. A choice that was saved can be undone.
class SigningDevicesSheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SigningDevicesSheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QAbstractListModel* devices READ devices CONSTANT)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(QString trouble READ trouble NOTIFY changed)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed)

public:
    SigningDevicesSheetModel(const DeskStores& stores, const QString& subject);

    GadgetListModel<DeviceChoice>* devices() { return &devices_; }
    QString summary() const;  ///< "16 chosen"
    /// Why the last identifiers were not added.
    const QString& trouble() const { return trouble_; }
    bool canSave() const;

    Q_INVOKABLE void toggle(int row);
    /// Identifiers, separated by commas or blanks. False when one of them is none.
    Q_INVOKABLE bool add(const QString& identifiers);
    Q_INVOKABLE void save();

signals:
    void changed();

private:
    std::vector<std::string> chosen() const;

    DeskStores stores_;
    std::vector<std::string> before_;
    GadgetListModel<DeviceChoice> devices_;
    QString trouble_;
};

}  // namespace app
