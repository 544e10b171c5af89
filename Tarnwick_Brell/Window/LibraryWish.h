#pragma once

#include <optional>

#include <QString>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryWork.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"

namespace app {

/// What the user wants done with the library. The desk closes for it and opens again.
struct LibraryWish {
    std::optional<LibraryWork> work{};
    QString outcome{};  ///< of the last work, as a sentence for the user
};

/// Fulfils the wish, with a window that shows how far it is. Needs an application object. When it
/// fails the library is as it was; either way `outcome` says what happened. False when the program
/// was told to end meanwhile.
bool fulfil(LibraryWish& wish, const Paths& paths, kit::Clock clock);

}  // namespace app
