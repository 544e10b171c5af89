#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

#include "Tarnwick_Brell/Models/Rows/ViewFile.h"

namespace app {

QString SheetModel::file() const { return viewFile(*this); }

}  // namespace app
