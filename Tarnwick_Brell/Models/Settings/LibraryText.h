#pragma once

#include <QString>

#include "Tarnwick_Brell/Storage/Safety/LibraryRepair.h"

namespace app {

/// "A repair keeps 1,204 stories, 33 of them saved, 2 newsrooms, 4 beats and 1 source of yours."
QString repairText(const RepairPreview& preview);

}  // namespace app
