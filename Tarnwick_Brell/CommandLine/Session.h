#pragma once

#include <memory>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/CommandLine/DailyBackup.h"
#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"
#include "Tarnwick_Brell/Shell/LaunchContext.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace cli {

using app::currentInstant;

/// One run of the command line: its options, its output and the user's store. Everything is opened
/// only on request.
class Session {
public:
    explicit Session(GlobalOptions options);

    const GlobalOptions& options() const { return options_; }
    Output& out() { return out_; }
    kit::Instant now() const { return now_; }
    const app::Paths& paths() const { return launch_.paths(); }
    /// Prints a line that recommends a brell command.
    void advise(const std::string& sentence);

    /// The library for a command that changes it; request it before anything reads the library.
    /// Throws app::StoreError.
    app::LocalStore& store();
    /// The library for a command that only reads; empty when there is none yet.
    app::LocalStore& storeForReading();
    /// Runs `work` with the library, for a command that shows what it fetches and also stores it.
    /// When the library cannot be written, because of a full disk for example, warns the user and
    /// runs the work, again if necessary, with an empty library in memory.
    template <class Work>
    auto storing(const Work& work) {
        try {
            return work(store());
        } catch (const app::StoreError& error) {
            warnNothingStored(error);
        }
        app::LocalStore passing(app::Database::kInMemory, app::Database::Access::readWrite);
        return work(passing);
    }

    app::Defaults& defaults();

    /// The network options. Call it before the store is opened: for the demonstration it starts the
    /// press room, which may begin a new world with an empty library.
    kit::CurlTransport::Options network();

private:
    /// Rethrows the current error unless it is about a library that can't be written.
    static void warnNothingStored(const app::StoreError& error);

    GlobalOptions options_;
    Output out_;
    kit::Instant now_;
    app::LaunchContext launch_;
    app::ProgramLog log_;
    std::unique_ptr<app::LocalStore> store_;
    bool isForReading_ = false;
    std::unique_ptr<app::Defaults> defaults_;
    std::unique_ptr<DailyBackup> backup_;
};

}  // namespace cli
