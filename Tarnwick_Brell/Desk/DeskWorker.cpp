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

namespace desk {

namespace asio = boost::asio;

struct DeskWorker::Machinery {
    Machinery(const std::filesystem::path& library, newsroom::CurlTransport::Options network,
              newsroom::FeedClient::Clock clock)
        : guard(asio::make_work_guard(io)),
          store(library, Database::Access::readWrite),
          engine(std::move(network), newsroom::Conditional::yes, std::move(clock)),
          bench{store, engine, closing} {
        store.hurryWhen(closing);
    }

    void runJob(const Job& job, const Failed& failed) {
        try {
            job(bench);
        } catch (const std::exception& error) {
            failed(error);
        }
    }

    void spawn(Ticket ticket, LongJob job, Failed failed);
    void repeat(asio::steady_timer& timer, std::chrono::milliseconds pause, Job job, Failed failed);

    std::atomic<bool> closing = false;
    asio::io_context io{1};
    asio::executor_work_guard<asio::io_context::executor_type> guard;
    LocalStore store;
    FetchEngine engine;
    Bench bench;
    /// One for each long job under way. A signal must outlive the coroutine that listens.
    std::map<Ticket, asio::cancellation_signal> signals;
    std::list<asio::steady_timer> timers;
    std::thread thread;
};

void DeskWorker::Machinery::spawn(Ticket ticket, LongJob job, Failed failed) {
    if (closing) return;
    auto& signal = signals[ticket];
    // The coroutine refers to what the job has captured, so the job lives until it ends.
    auto owned = std::make_shared<LongJob>(std::move(job));
    asio::co_spawn(io, (*owned)(bench),
                   asio::bind_cancellation_slot(signal.slot(),
                                                [this, ticket, owned, failed = std::move(failed)](
                                                    const std::exception_ptr& error) {
                                                    signals.erase(ticket);
                                                    if (!error) return;
                                                    try {
                                                        std::rethrow_exception(error);
                                                    } catch (const std::exception& failure) {
                                                        failed(failure);
                                                    }
                                                }));
}

void DeskWorker::Machinery::repeat(asio::steady_timer& timer, std::chrono::milliseconds pause,
                                   Job job, Failed failed) {
    timer.expires_after(pause);
    timer.async_wait([this, &timer, pause, job = std::move(job),
                      failed = std::move(failed)](const boost::system::error_code& error) {
        if (error || closing) return;
        runJob(job, failed);
        repeat(timer, pause, job, failed);
    });
}

DeskWorker::DeskWorker(const std::filesystem::path& library,
                       newsroom::CurlTransport::Options network, newsroom::FeedClient::Clock clock)
    : machinery_(std::make_unique<Machinery>(library, std::move(network), std::move(clock))) {
    machinery_->thread = std::thread([this] { machinery_->io.run(); });
}

DeskWorker::~DeskWorker() {
    machinery_->closing = true;
    asio::post(machinery_->io, [this] {
        for (auto& timer : machinery_->timers) timer.cancel();
        for (auto& [ticket, signal] : machinery_->signals) {
            signal.emit(asio::cancellation_type::terminal);
        }
        machinery_->guard.reset();
    });
    machinery_->thread.join();
}

void DeskWorker::post(Job job, Failed failed) {
    asio::post(machinery_->io, [this, job = std::move(job), failed = std::move(failed)] {
        machinery_->runJob(job, failed);
    });
}

DeskWorker::Ticket DeskWorker::spawn(LongJob job, Failed failed) {
    const auto ticket = ++lastTicket_;
    asio::post(machinery_->io,
               [this, ticket, job = std::move(job), failed = std::move(failed)]() mutable {
                   machinery_->spawn(ticket, std::move(job), std::move(failed));
               });
    return ticket;
}

void DeskWorker::cancel(Ticket ticket) {
    asio::post(machinery_->io, [this, ticket] {
        const auto entry = machinery_->signals.find(ticket);
        if (entry != machinery_->signals.end()) {
            entry->second.emit(asio::cancellation_type::terminal);
        }
    });
}

void DeskWorker::repeat(std::chrono::milliseconds pause, Job job, Failed failed) {
    asio::post(machinery_->io,
               [this, pause, job = std::move(job), failed = std::move(failed)]() mutable {
                   auto& timer = machinery_->timers.emplace_back(machinery_->io);
                   machinery_->repeat(timer, pause, std::move(job), std::move(failed));
               });
}

}  // namespace desk
