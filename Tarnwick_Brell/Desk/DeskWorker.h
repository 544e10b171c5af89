#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Records/Instant.h"

namespace app {

class FetchStack;
class LocalStore;

/// The thread on which a desk writes its library and waits for the network, so that the main
/// thread never does. Jobs run one after another; while a coroutine waits, they go on.
class DeskWorker {
public:
    /// What jobs work with, on the worker's thread only.
    struct WorkerContext {
        LocalStore& store;
        FetchStack& stack;
        const std::atomic<bool>& isClosing;  ///< jobs that only read may stop
    };

    using Job = std::function<void(WorkerContext&)>;
    using LongJob = std::function<boost::asio::awaitable<void>(WorkerContext&)>;
    /// Called on the worker's thread; what() is a sentence for the user.
    using Failed = std::function<void(const std::exception&)>;

    /// Opens the library on the calling thread: throws StoreError.
    DeskWorker(const std::filesystem::path& library, kit::CurlTransport::Options network,
               kit::Clock clock);

    /// Cancels coroutines and runs the jobs that were posted, without waiting long for other
    /// programs that hold the library.
    ~DeskWorker();
    DeskWorker(const DeskWorker&) = delete;
    DeskWorker& operator=(const DeskWorker&) = delete;

    /// `failed` is called when the job throws.
    void post(Job job, Failed failed);

    using JobID = std::uint64_t;

    /// The same for a coroutine. `cancel` with the id ends it.
    JobID spawn(LongJob job, Failed failed);
    void cancel(JobID id);

    /// Runs the job repeatedly, with that pause in between.
    void repeat(std::chrono::milliseconds pause, Job job, Failed failed);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
    JobID lastJobID_ = 0;
};

}  // namespace app
