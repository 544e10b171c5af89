#pragma once

#include <memory>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/CommandLine/DailyBackup.h"
#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"
#include "Tarnwick_Brell/Shell/Premises.h"
#include "Tarnwick_Brell/Shell/WallClock.h"
#include "Tarnwick_Brell/Storage/Defaults.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Paths.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace brell {

using desk::currentInstant;

/// One run of the command line: its options, its output and the user's store. What a command
/// does not ask for is not opened.
class Session {
public:
    explicit Session(GlobalOptions options);

    const GlobalOptions& options() const { return options_; }
    Output& out() { return out_; }
    newsroom::Instant now() const { return now_; }
    const desk::Paths& paths() const { return premises_.paths(); }
    /// A line of the output that advises a command of brell.
    void advise(const std::string& sentence);

    /// The library for a command that changes it: to be asked for before anything reads it.
    /// Throws desk::StoreError.
    desk::LocalStore& store();
    /// The library for a command that only reads; an empty one when there is none yet.
    desk::LocalStore& storeForReading();
    /// Gives `work` the library, for a command that shows what it fetches and also stores it.
    /// Where the library cannot be written, a full disk for example, the user is warned and the
    /// work is done, once more if need be, with an empty library in memory.
    template <class Work>
    auto storing(const Work& work) {
        try {
            return work(store());
        } catch (const desk::StoreError& error) {
            warnNothingStored(error);
        }
        desk::LocalStore passing(desk::Database::kInMemory, desk::Database::Access::readWrite);
        return work(passing);
    }

    desk::Defaults& defaults();

    /// How to reach the network. To be asked before the store: for the demonstration it
    /// starts the press room, which may begin a new world with an empty library.
    newsroom::CurlTransport::Options network();

private:
    /// Throws the error that is being handled again when it tells of anything but a place that can't be written.
    static void warnNothingStored(const desk::StoreError& error);

    GlobalOptions options_;
    Output out_;
    newsroom::Instant now_;
    desk::Premises premises_;
    desk::ProgramLog log_;
    std::unique_ptr<desk::LocalStore> store_;
    bool isForReading_ = false;
    std::unique_ptr<desk::Defaults> defaults_;
    std::unique_ptr<DailyBackup> backup_;
};

}  // namespace brell
