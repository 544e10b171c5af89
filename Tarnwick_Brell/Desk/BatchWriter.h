#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Ingestion/ClockCheck.h"
#include "NewsroomKit/Ingestion/SourceFetch.h"
#include "Tarnwick_Brell/Desk/RefreshPass.h"

namespace app {

/// Stores what a pass fetches, in few transactions. Failures without any answer wait until a
/// source answers: when none does, the network is down and no source is to blame.
class BatchWriter {
public:
    struct Arrival {
        kit::NewsSource source;
        kit::SourceFetch fetch;
        kit::Instant moment{};
    };

    /// All references must outlive the writer. `states` follows what is stored.
    struct Context {
        LocalStore& store;
        SourceStates& states;
        const kit::ClockCheck& clockCheck;
        const kit::Clock& clock;
        const PassSettings& settings;
        const RefreshPass::Listener& listener;
    };

    BatchWriter(const Context& context, std::size_t sourceCount)
        : context_(context), total_(sourceCount) {}

    /// Reports a source that was not fetched: not due, or paused.
    void skip(const kit::NewsSource& source, SourceOutcome::Kind kind,
              std::optional<kit::Instant> pausedUntil = std::nullopt);

    void add(Arrival arrival);

    /// Stores waiting arrivals every second, or every few seconds while many stories come,
    /// until it is cancelled.
    boost::asio::awaitable<void> writeRegularly();

    bool isAnswered() const { return answered_; }

    /// Called after the last arrival.
    PassReport finish();

private:
    using SteadyClock = std::chrono::steady_clock;

    void countOne();
    void enqueue(Arrival arrival);
    void flushUnanswered();
    void write();
    bool isWholeNetworkDown() const;
    SourceOutcome store(Arrival arrival, StoryMerge& merging, CommittedBatch& batch);
    MergeCount storeStories(const kit::NewsSource& source, std::vector<kit::Story> stories,
                            kit::Instant moment, StoryMerge& merging, CommittedBatch& batch);
    SourceOutcome outcomeOf(const kit::NewsSource& source, SourceOutcome::Kind kind) const;
    SourceOutcome unstoredOutcome(Arrival& arrival) const;
    void report(CommittedBatch batch);

    Context context_;
    PassReport report_;
    std::vector<Arrival> waiting_;     ///< to be stored with the next transaction
    std::vector<Arrival> unanswered_;  ///< failed without an answer, before any source answered
    std::vector<Arrival> cancelled_;
    std::size_t waitingStories_ = 0;
    std::optional<SteadyClock::time_point> lastWrite_;
    std::size_t done_ = 0;
    std::size_t total_;
    bool answered_ = false;
};

}  // namespace app
