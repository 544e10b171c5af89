#pragma once

#include <optional>
#include <vector>

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Settings/ContactedHosts.h"
#include "Tarnwick_Brell/Models/Settings/SettingRows.h"

namespace app {

class LibraryStatus;

/// When quiet hours begin and end, and this moment, as parts of a day of this computer's clock.
QList<qreal> quietBand(const Defaults& defaults, kit::Instant now);

/// The rules of alerts, and the beats, with switches.
std::vector<SettingRow> alertRows(const DeskStores& stores);

/// Where the library is, how large, and its backups with buttons that restore them; a damaged one
/// can be repaired. `asked` is the work that has been asked for and waits for a second press.
std::vector<SettingRow> libraryRows(const LibraryStatus& library,
                                    const std::optional<LibraryWork>& asked, kit::Instant now);

/// Which computers are asked, why, and how often.
std::vector<SettingRow> privacyFacts(const DeskStores& stores, const FetchCounts& fetches);

/// The version, the licence, what the program is made with.
std::vector<SettingRow> aboutFacts();

}  // namespace app
