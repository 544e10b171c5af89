#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include <QString>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"

namespace app {

class DeskUpdateBuilder;
struct DeskUpdate;

/// Runs the jobs of the desk and its controllers on the worker's thread, and delivers their
/// results on the main thread.
class DeskJobs {
public:
    /// Both are called on the main thread.
    struct Receiver {
        std::function<void(DeskUpdate)> apply{};
        std::function<void(const QString& sentence, bool isLibraryDamaged)> fail{};
    };

    /// Opens the library; throws StoreError, or std::runtime_error for an unreadable authority.
    DeskJobs(const std::filesystem::path& library, kit::CurlTransport::Options network,
             kit::Clock clock, Receiver receiver);
    /// Ends the worker. Jobs refer to their controllers, so those must still exist.
    ~DeskJobs();

    DeskWorker& worker() { return worker_; }

    /// When the job throws, `undo` is called on the main thread before the failure is reported.
    void post(DeskWorker::Job job, std::function<void()> undo = {});
    DeskWorker::Failed reportFailure(std::function<void()> undo = {});

    /// From any thread, in the order of the calls.
    void deliver(std::function<void()> message);
    void deliver(DeskUpdate update);

    // On the worker's thread.

    /// Begins to make updates of the library that the context names.
    void beginUpdates(DeskWorker::WorkerContext& context);
    bool hasUpdates() const { return updates_ != nullptr; }
    /// Throws StoreError when the library could not be read.
    DeskUpdateBuilder& updates();

private:
    kit::Clock clock_;
    Receiver receiver_;
    MainThreadQueue queue_;
    std::unique_ptr<DeskUpdateBuilder> updates_;  ///< used on the worker's thread only
    DeskWorker worker_;                           ///< last: its jobs use the other members
};

}  // namespace app
