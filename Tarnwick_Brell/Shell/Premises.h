#pragma once

#include <memory>
#include <stdexcept>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Shell/DemoPressRoom.h"
#include "Tarnwick_Brell/Shell/DeskOptions.h"
#include "Tarnwick_Brell/Storage/Paths.h"

namespace desk {

/// Options that make no sense together; what() is a sentence for the user.
class OptionsClash : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Where one run of a program keeps the desk's files, and how it reaches the network.
class Premises {
public:
    /// Throws OptionsClash.
    Premises(DeskOptions options, newsroom::Instant now);

    const Paths& paths() const { return paths_; }

    /// To be asked before the library is opened: for the demonstration it starts the press
    /// room, alive as long as this object, which may begin a new world with an empty library.
    /// Throws DemoError.
    newsroom::CurlTransport::Options network();

private:
    DeskOptions options_;
    newsroom::Instant now_;
    Paths paths_;
    std::unique_ptr<DemoPressRoom> pressRoom_;
};

}  // namespace desk
