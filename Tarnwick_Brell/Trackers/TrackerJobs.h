#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Trackers/TrackerFetcher.h"
#include "Tarnwick_Brell/Trackers/TrackerHistories.h"
#include "Tarnwick_Brell/Trackers/TrackerValues.h"

namespace app {

class TrackerStore;
struct SymbolAnswer;

/// A TrackedFile with its type hidden.
struct AnyTrackedFile {
    AnyTrackedFile() = default;
    template <class T>
    AnyTrackedFile(TrackedFile<T> file);

    Tracker tracker{};
    std::string name{};
    std::string title{};
    bool comesFirst = false;
    std::function<AnyCachedValue(LocalStore&)> load{};
    std::function<boost::asio::awaitable<AnyCachedValue>(TrackerFetcher&)> fetch{};
    /// Null when it is due whenever its tracker is.
    std::function<bool(LocalStore&)> isDue{};
};

std::vector<std::string> namesOf(const std::vector<AnyTrackedFile>& files);

struct LoadedFile {
    Tracker tracker;
    std::string name;
    AnyCachedValue cached;
};

/// The jobs that a TrackerStore gives to the worker. They run on the worker's thread, send what
/// they load and fetch to the store, and may outlive it.
class TrackerJobs {
public:
    using Files = std::vector<AnyTrackedFile>;

    TrackerJobs(TrackerStore& store, std::shared_ptr<MainThreadQueue> queue, kit::Clock clock);

    /// Loads the values of the files, and all histories, from the library.
    DeskWorker::Job load(Files files) const;
    /// Fetches the files of a tracker.
    DeskWorker::LongJob fetch(Tracker tracker, Files files) const;
    /// Loads the files, and fetches those that are missing or older than `freshFor`.
    DeskWorker::LongJob fetchStale(Files files, std::chrono::seconds freshFor) const;

    /// Fetches a quote to find out whether its symbol is known.
    DeskWorker::LongJob checkSymbol(TrackedFile<kit::StockQuote> file,
                                    std::function<void(const SymbolAnswer&)> answer) const;

    /// Marks the whole log as looked at.
    DeskWorker::Job markLogLookedAt() const;

    /// The message is dropped when the store is gone.
    void send(std::function<void(TrackerStore&)> message) const;

private:
    using WorkerContext = DeskWorker::WorkerContext;
    using Work = boost::asio::awaitable<void>;

    Work fetchAll(WorkerContext& context, const Files& files) const;
    void announceChanges(LocalStore& store) const;
    void sendLogState(LocalStore& store) const;

    TrackerStore* store_;  ///< for the main thread only
    std::shared_ptr<MainThreadQueue> queue_;
    kit::Clock clock_;
};

template <class T>
boost::asio::awaitable<AnyCachedValue> fetchAny(TrackerFetcher& fetcher, TrackedFile<T> file) {
    auto cached = co_await fetcher.fetch(std::move(file));
    co_return AnyCachedValue(std::move(cached));
}

template <class T>
AnyTrackedFile::AnyTrackedFile(TrackedFile<T> file)
    : tracker(file.tracker),
      name(file.name),
      title(file.title),
      comesFirst(file.comesFirst),
      load([file](LocalStore& store) { return AnyCachedValue(TrackerCache(store).read(file)); }),
      fetch([file](TrackerFetcher& fetcher) { return fetchAny(fetcher, file); }) {}

}  // namespace app
