#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

/// What the store asks of the worker: runs on the worker's thread, and tells the store what came
/// by mail. Its jobs may outlive the store.
class TrackerStore::Errand {
public:
    Errand(TrackerStore& store, std::string serviceAddress)
        : store_(&store),
          mailbox_(store.mailbox_),
          clock_(store.clock_),
          serviceAddress_(std::move(serviceAddress)) {}

    /// Fetches; the quotes are those that are wanted.
    DeskWorker::LongJob round(TrackerRound round, QuoteKeys wanted) const;

    /// Gives what the library holds, and fetches what is older than `freshFor`.
    DeskWorker::LongJob freshQuotes(QuoteKeys keys, std::chrono::seconds freshFor) const;

    /// Gives what the library holds.
    DeskWorker::Job stored(QuoteKeys wanted) const;

    /// The message is dropped when the store is gone.
    void tell(std::function<void(TrackerStore&)> message) const {
        mailbox_->send([store = store_, message = std::move(message)] { message(*store); });
    }

private:
    using WorkerContext = DeskWorker::WorkerContext;
    using Work = boost::asio::awaitable<void>;

    Work status(WorkerContext& context) const;
    Work releases(WorkerContext& context) const;
    Work quotes(WorkerContext& context, QuoteKeys keys) const;
    Work board(WorkerContext& context) const;
    Work events(WorkerContext& context) const;

    TrackerRefresh refreshAt(WorkerContext& context) const;
    void tellQuote(const QuoteKey& key, Quote quote) const;

    TrackerStore* store_;  ///< for the main thread only
    std::shared_ptr<MainThreadQueue> mailbox_;
    kit::Clock clock_;
    std::string serviceAddress_;
};

}  // namespace app
