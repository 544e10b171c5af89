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

/// The paths and the network options of one run of a program.
class LaunchContext {
public:
    /// Receives a sentence for the user.
    using Warning = std::function<void(const std::string& sentence)>;

    /// Throws OptionsClash, and StoreError when the path for the files is not a folder.
    LaunchContext(DeskOptions options, kit::Instant now);

    const Paths& paths() const { return paths_; }

    /// The levels that the command line names, or else the setting.
    ProgramLog::Options log() const;

    /// Call this before the library is opened: for the demonstration it starts the press room,
    /// alive as long as this object, which may begin a new world with an empty library. An
    /// unreadable certificate file causes a warning and is left out, so that only its host fails.
    /// Throws DemoError.
    kit::CurlTransport::Options network(const Warning& warn);

private:
    DeskOptions options_;
    kit::Instant now_;
    Paths paths_;
    std::unique_ptr<DemoPressRoom> pressRoom_;
};

}  // namespace app
