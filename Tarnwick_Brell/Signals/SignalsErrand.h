#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Tarnwick_Brell/Signals/SignalsRefresh.h"
#include "Tarnwick_Brell/Signals/SignalsStore.h"

namespace app {

/// What the store asks of the worker: runs on the worker's thread, and tells the store what came
/// by mail. Its jobs may outlive the store.
class SignalsStore::Errand {
public:
    explicit Errand(SignalsStore& store)
        : store_(&store), mailbox_(store.mailbox_), clock_(store.clock_) {}

    /// Fetches; signing is asked for these devices.
    DeskWorker::LongJob round(SignalRound round, std::vector<std::string> devices) const;

    /// Gives what the library holds.
    DeskWorker::Job stored(std::vector<std::string> devices) const;

    /// The message is dropped when the store is gone.
    void tell(std::function<void(SignalsStore&)> message) const {
        mailbox_->send([store = store_, message = std::move(message)] { message(*store); });
    }

private:
    using WorkerContext = DeskWorker::WorkerContext;
    using Work = boost::asio::awaitable<void>;

    Work signing(WorkerContext& context, const std::vector<std::string>& devices) const;
    Work updates(WorkerContext& context) const;
    Work charts(WorkerContext& context) const;

    static HeldChart withDayBefore(LocalStore& store, Kind kind, Chart reading);
    static Changes changesIn(LocalStore& store);
    SignalsRefresh refreshAt(WorkerContext& context) const;
    /// Tells what the histories have that has not been told, whoever fetched it.
    void tellNews(LocalStore& store) const;

    SignalsStore* store_;  ///< for the main thread only
    std::shared_ptr<MainThreadQueue> mailbox_;
    kit::Clock clock_;
};

}  // namespace app
