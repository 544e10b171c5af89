#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <QString>

#include "Tarnwick_Brell/Signals/SignalsStore.h"

/// Firmware, updates and charts in words, and how their readings are taken together.
namespace app {

/// "27.1 (24B83)"
QString buildText(const std::string& version, const std::string& build);

/// "Phone 17, Phone 17 Plus and 4 others"
QString devicesText(const std::vector<std::string>& names);

/// "3 Nov", with the year when it is another one: a day as Apple has it, the same in all zones.
QString appleDayText(kit::Instant day, kit::Instant now);

/// All models that are asked for as one reading: as old as the oldest, and with an error only
/// when none of them could be asked. The value is how many are known.
TrackerReading<std::size_t> signingOfAll(const SignalsStore& store);

}  // namespace app
