#pragma once

#include <QString>

#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

// The user wants to be told nothing for a while. Each returns what is so now, as a sentence.
QString quietForAnHour(const DeskStores& stores);
QString quietUntilMorning(const DeskStores& stores);
QString endQuiet(const DeskStores& stores);

}  // namespace app
