#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Shell/DemoPressRoom.h"
#include "Tarnwick_Brell/Shell/DeskOptions.h"
#include "Tarnwick_Brell/Shell/ProgramLog.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"

namespace app {

/// The wall clock. Everything else gets its clock from outside.
kit::Instant currentInstant();

/// Options that make no sense together; what() is a sentence for the user.
class OptionsClash : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Where one run of a program keeps the desk's files, and how it reaches the network.
class LaunchContext {
public:
    /// Takes a sentence for the user.
    using Warning = std::function<void(const std::string& sentence)>;

    /// Throws OptionsClash, and StoreError when what is to hold the files is no folder.
    LaunchContext(DeskOptions options, kit::Instant now);

    const Paths& paths() const { return paths_; }

    /// The levels that the command line names, or else the setting.
    ProgramLog::Options log() const;

    /// To be asked before the library is opened: for the demonstration it starts the press
    /// room, alive as long as this object, which may begin a new world with an empty library.
    /// A certificate file that can't be read is warned of and left out: only what it is for
    /// fails then. Throws DemoError.
    kit::CurlTransport::Options network(const Warning& warn);

private:
    DeskOptions options_;
    kit::Instant now_;
    Paths paths_;
    std::unique_ptr<DemoPressRoom> pressRoom_;
};

}  // namespace app
