#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Tarnwick_Brell/Signals/SignalsRefresh.h"
#include "Tarnwick_Brell/Signals/SignalsStore.h"

namespace desk {

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
    using Bench = DeskWorker::Bench;
    using Work = boost::asio::awaitable<void>;

    Work signing(Bench& bench, const std::vector<std::string>& devices) const;
    Work updates(Bench& bench) const;
    Work charts(Bench& bench) const;

    static HeldChart withDayBefore(LocalStore& store, Kind kind, Chart reading);
    static Changes changesIn(LocalStore& store);
    SignalsRefresh refreshAt(Bench& bench) const;
    /// Tells what the histories have that has not been told, whoever fetched it.
    void tellNews(LocalStore& store) const;

    SignalsStore* store_;  ///< for the main thread only
    std::shared_ptr<Mailbox> mailbox_;
    newsroom::FeedClient::Clock clock_;
};

}  // namespace desk
