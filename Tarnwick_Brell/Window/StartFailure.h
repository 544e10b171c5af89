#pragma once

#include <exception>
#include <filesystem>
#include <optional>

#include <QString>

#include "Tarnwick_Brell/Storage/Safety/LibraryWork.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"

namespace app {

/// Why the window's program does not start.
struct StartFailure {
    QString reason{};                ///< the text that also goes to standard error
    QString help{};                  ///< a sentence; empty where the reason says what helps
    std::filesystem::path folder{};  ///< to be looked into; empty where that does not help
    bool isLibraryDamaged = false;
};

StartFailure startFailure(const std::exception& error, const Paths& paths);

/// Whether nobody reads standard error but somebody sees a window: it is no terminal, and a
/// display of this computer takes connections. Without one Qt would end the program.
bool needsFailureWindow();

/// Shows the failure in a small window until it is closed. Needs an application object. Where
/// there can't be such a window, standard error has to do. Returns what the user wants done with a
/// damaged library before the program starts again.
std::optional<LibraryWork> showStartFailure(const StartFailure& failure, const Paths& paths);

}  // namespace app
