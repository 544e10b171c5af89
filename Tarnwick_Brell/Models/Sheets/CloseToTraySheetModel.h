#pragma once

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

namespace app {

/// Asks once whether closing the window leaves the desk in the tray.
class CloseToTraySheetModel : public app::SheetModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes its sheets.")

public:
    CloseToTraySheetModel(const DeskStores& stores, const QString& subject);

    /// Remembers the answer. The view closes the window again, which then obeys it.
    Q_INVOKABLE void choose(bool staysInTray);

private:
    DeskStores stores_;
};

}  // namespace app
