#include "Tarnwick_Brell/Desk/DeskWorker.h"

#include <exception>
#include <list>
#include <map>
#include <thread>
#include <utility>

#include <boost/asio/bind_cancellation_slot.hpp>
#include <boost/asio/cancellation_signal.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>

#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace asio = boost::asio;

struct DeskWorker::Impl {
    Impl(const std::filesystem::path& library, kit::CurlTransport::Options network,
         kit::Clock clock)
        : guard(asio::make_work_guard(io)),
          store(library, Database::Access::readWrite),
          stack(std::move(network), kit::Conditional::yes, std::move(clock)),
          context{store, stack, closing} {
        store.hurryWhen(closing);
    }

    void runJob(const Job& job, const Failed& failed) {
        try {
            job(context);
        } catch (const std::exception& error) {
            failed(error);
        }
    }

    void spawn(JobID id, LongJob job, Failed failed);
    void repeat(asio::steady_timer& timer, std::chrono::milliseconds pause, Job job, Failed failed);

    std::atomic<bool> closing = false;
    asio::io_context io{1};
    asio::executor_work_guard<asio::io_context::executor_type> guard;
    LocalStore store;
    FetchStack stack;
    WorkerContext context;
    /// One for each long job under way. A signal must outlive the coroutine that listens.
    std::map<JobID, asio::cancellation_signal> cancellations;
    std::list<asio::steady_timer> timers;
    std::thread thread;
};

void DeskWorker::Impl::spawn(JobID id, LongJob job, Failed failed) {
    if (closing) return;
    auto& signal = cancellations[id];
    // The coroutine refers to what the job has captured, so the job lives until it ends.
    auto owned = std::make_shared<LongJob>(std::move(job));
    asio::co_spawn(
        io, (*owned)(context),
        asio::bind_cancellation_slot(signal.slot(), [this, id, owned, failed = std::move(failed)](
                                                        const std::exception_ptr& error) {
            cancellations.erase(id);
            if (!error) return;
            try {
                std::rethrow_exception(error);
            } catch (const std::exception& failure) {
                failed(failure);
            }
        }));
}

void DeskWorker::Impl::repeat(asio::steady_timer& timer, std::chrono::milliseconds pause, Job job,
                              Failed failed) {
    timer.expires_after(pause);
    timer.async_wait([this, &timer, pause, job = std::move(job),
                      failed = std::move(failed)](const boost::system::error_code& error) {
        if (error || closing) return;
        runJob(job, failed);
        repeat(timer, pause, job, failed);
    });
}

DeskWorker::DeskWorker(const std::filesystem::path& library, kit::CurlTransport::Options network,
                       kit::Clock clock)
    : impl_(std::make_unique<Impl>(library, std::move(network), std::move(clock))) {
    impl_->thread = std::thread([this] { impl_->io.run(); });
}

DeskWorker::~DeskWorker() {
    impl_->closing = true;
    asio::post(impl_->io, [this] {
        for (auto& timer : impl_->timers) timer.cancel();
        for (auto& [id, signal] : impl_->cancellations) {
            signal.emit(asio::cancellation_type::terminal);
        }
        impl_->guard.reset();
    });
    impl_->thread.join();
}

void DeskWorker::post(Job job, Failed failed) {
    asio::post(impl_->io, [this, job = std::move(job), failed = std::move(failed)] {
        impl_->runJob(job, failed);
    });
}

DeskWorker::JobID DeskWorker::spawn(LongJob job, Failed failed) {
    const auto id = ++lastJobID_;
    asio::post(impl_->io, [this, id, job = std::move(job), failed = std::move(failed)]() mutable {
        impl_->spawn(id, std::move(job), std::move(failed));
    });
    return id;
}

void DeskWorker::cancel(JobID id) {
    asio::post(impl_->io, [this, id] {
        const auto entry = impl_->cancellations.find(id);
        if (entry != impl_->cancellations.end()) {
            entry->second.emit(asio::cancellation_type::terminal);
        }
    });
}

void DeskWorker::repeat(std::chrono::milliseconds pause, Job job, Failed failed) {
    asio::post(impl_->io,
               [this, pause, job = std::move(job), failed = std::move(failed)]() mutable {
                   auto& timer = impl_->timers.emplace_back(impl_->io);
                   impl_->repeat(timer, pause, std::move(job), std::move(failed));
               });
}

}  // namespace app
