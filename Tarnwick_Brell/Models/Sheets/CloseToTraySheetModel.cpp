#include "Tarnwick_Brell/Models/Sheets/CloseToTraySheetModel.h"

#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/Settings/TraySetting.h"

namespace app {

CloseToTraySheetModel::CloseToTraySheetModel(const DeskStores& stores, const QString&)
    : stores_(stores) {}

void CloseToTraySheetModel::choose(bool staysInTray) {
    try {
        stores_.defaults.set(kCloseToTray, staysInTray ? "yes" : "no");
    } catch (const StoreError& error) {
        emit noticed(QString::fromUtf8(error.what()));
    }
    emit closeWanted();
}

}  // namespace app
