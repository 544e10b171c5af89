#pragma once

#include <string_view>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Ingestion/FeedClient.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Shell/LibraryCare.h"
#include "Tarnwick_Brell/Storage/Defaults.h"
#include "Tarnwick_Brell/Storage/LibraryLock.h"
#include "Tarnwick_Brell/Storage/Paths.h"

namespace desk {

/// Makes and owns every store and service of a long-lived desk, be it a window or a command
/// that stays. Needs a running Qt event loop.
class AppEnvironment {
public:
    struct Options {
        Paths paths{};
        newsroom::CurlTransport::Options network{};
        newsroom::FeedClient::Clock clock{};
        std::string_view what{};  ///< this desk, for the message to another that comes later
    };

    /// Throws LibraryHeld when another desk is at the library, or StoreError.
    explicit AppEnvironment(const Options& options);

    /// Loads the library and begins to refresh.
    void start();

    Defaults& defaults() { return defaults_; }
    NewsDesk& newsDesk() { return newsDesk_; }

private:
    static const Paths& prepared(const Paths& paths);

    LibraryLock lock_;
    Defaults defaults_;
    NewsDesk newsDesk_;
    LibraryCare care_;
};

}  // namespace desk
