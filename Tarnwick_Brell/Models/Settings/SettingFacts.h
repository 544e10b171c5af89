#pragma once

#include <vector>

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Settings/SettingRows.h"

namespace app {

class LibraryStatus;

/// Where the library is, how large, how it is backed up and restored.
std::vector<SettingRow> libraryFacts(const LibraryStatus& library, kit::Instant now);

/// Which computers are asked, why, and how often.
std::vector<SettingRow> privacyFacts(const DeskStores& stores);

/// The version, the licence, what the program is made with.
std::vector<SettingRow> aboutFacts();

}  // namespace app
