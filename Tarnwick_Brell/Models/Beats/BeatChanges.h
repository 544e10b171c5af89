#pragma once

#include <cstddef>
#include <string>

#include <QString>

#include "NewsroomKit/Newsrooms/Beat.h"
#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

/// Why the beat can't be stored, as a sentence. Empty when it can.
QString beatProblem(const DeskStores& stores, const kit::Beat& beat);

/// Adds the beat or replaces the one with its id, so that it can be undone.
void putBeat(const DeskStores& stores, const kit::Beat& beat);

/// Removes the beat, so that it can be undone.
void removeBeat(const DeskStores& stores, const std::string& id);

/// Moves it in the user's order, so that it can be undone. `place` counts from 0 and stops at the
/// end.
void moveBeat(const DeskStores& stores, const std::string& id, std::size_t place);

}  // namespace app
