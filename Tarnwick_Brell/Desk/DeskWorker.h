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
#include "NewsroomKit/Ingestion/FeedClient.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

/// The thread on which a desk writes its library and waits for the network: the main thread
/// never waits for either. Jobs run one after another; a coroutine gives way to them where it
/// waits.
class DeskWorker {
public:
    /// What jobs work with; only ever touched on the worker's thread.
    struct WorkerContext {
        LocalStore& store;
        FetchStack& engine;
        const std::atomic<bool>& isClosing;  ///< what only reads need not go on
    };

    using Job = std::function<void(WorkerContext&)>;
    using LongJob = std::function<boost::asio::awaitable<void>(WorkerContext&)>;
    /// Told on the worker's thread; what() is a sentence for the user.
    using Failed = std::function<void(const std::exception&)>;

    /// Opens the library on the calling thread: throws StoreError.
    DeskWorker(const std::filesystem::path& library, kit::CurlTransport::Options network,
               kit::Clock clock);

    /// Cancels what waits for the network. What has been posted is still written, but other
    /// programs that hold the library are not waited for long.
    ~DeskWorker();
    DeskWorker(const DeskWorker&) = delete;
    DeskWorker& operator=(const DeskWorker&) = delete;

    /// `failed` is called when the job throws.
    void post(Job job, Failed failed);

    using Ticket = std::uint64_t;

    /// As `post`, for work that waits. `cancel` with the ticket ends it.
    Ticket spawn(LongJob job, Failed failed);
    void cancel(Ticket ticket);

    /// Calls `job` again and again, with that pause between two calls.
    void repeat(std::chrono::milliseconds pause, Job job, Failed failed);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
    Ticket lastTicket_ = 0;
};

}  // namespace app
