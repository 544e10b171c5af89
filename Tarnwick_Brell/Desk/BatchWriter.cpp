#include "Tarnwick_Brell/Desk/BatchWriter.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>
#include <variant>

#include <boost/asio/as_tuple.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/this_coro.hpp>
#include <boost/asio/use_awaitable.hpp>

#include "Tarnwick_Brell/Desk/StoryIntake.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace asio = boost::asio;

using kit::Instant;
using kit::NewsSource;
using kit::SourceFetch;
using kit::Story;
using Kind = SourceOutcome::Kind;

namespace {

// Stories of many feeds lie all over the library, so each transaction rewrites most of its
// pages. While many stories arrive, transactions are rarer and larger.
constexpr std::size_t kStoriesPerTransaction = 16'000;
constexpr std::size_t kManyStories = 1000;
constexpr std::chrono::seconds kBetweenWrites{1};
constexpr std::chrono::seconds kBetweenWritesOfMany{10};

/// A source that was silent for longer may bring many new stories at once without their
/// counting as an archive.
constexpr std::chrono::hours kLongSilence{24};

bool hasAnswer(const SourceFetch& fetch) {
    return !std::holds_alternative<SourceFetch::Failed>(fetch.outcome) || fetch.record.status != 0;
}

SourceTry tryOf(Kind kind, const MergeCount& merged, const SourceStatus& status, Instant moment) {
    using Outcome = SourceTry::Outcome;
    const auto outcome = kind == Kind::failed      ? Outcome::failed
                         : kind == Kind::unchanged ? Outcome::unchanged
                         : merged.added > 0        ? Outcome::news
                                                   : Outcome::full;
    return {.at = moment,
            .outcome = outcome,
            .added = static_cast<std::int64_t>(merged.added),
            .reason = status.lastError.value_or("")};
}

}  // namespace

void BatchWriter::skip(const NewsSource& source, Kind kind, std::optional<Instant> pausedUntil) {
    countOne();
    auto outcome = outcomeOf(source, kind);
    outcome.pausedUntil = pausedUntil;
    CommittedBatch batch;
    batch.outcomes.push_back(std::move(outcome));
    report(std::move(batch));
}

void BatchWriter::add(Arrival arrival) {
    countOne();
    const auto* failed = std::get_if<SourceFetch::Failed>(&arrival.fetch.outcome);
    if (failed && failed->cancelled) {
        cancelled_.push_back(std::move(arrival));
    } else if (hasAnswer(arrival.fetch)) {
        answered_ = true;
        flushUnanswered();
        enqueue(std::move(arrival));
    } else if (answered_) {
        enqueue(std::move(arrival));
    } else {
        unanswered_.push_back(std::move(arrival));
    }
    if (waitingStories_ >= kStoriesPerTransaction) write();
}

asio::awaitable<void> BatchWriter::writeRegularly() {
    // Fetching may end when the timer has just expired. The cancellation that follows is no
    // failure, so it must not throw.
    co_await asio::this_coro::throw_if_cancelled(false);
    const auto cancellation = co_await asio::this_coro::cancellation_state;
    asio::steady_timer timer(co_await asio::this_coro::executor);
    while (cancellation.cancelled() == asio::cancellation_type::none) {
        timer.expires_after(kBetweenWrites);
        const auto [error] = co_await timer.async_wait(asio::as_tuple(asio::use_awaitable));
        const bool isMany = lastWrite_ && waitingStories_ >= kManyStories;
        const bool mayWait = isMany && SteadyClock::now() - *lastWrite_ < kBetweenWritesOfMany;
        if (!error && !mayWait) write();
    }
}

PassReport BatchWriter::finish() {
    report_.offline = !answered_ && !unanswered_.empty() && isWholeNetworkDown();
    if (!report_.offline) flushUnanswered();
    write();
    CommittedBatch batch;
    for (auto* arrivals : {&unanswered_, &cancelled_}) {
        for (auto& arrival : *arrivals) batch.outcomes.push_back(unstoredOutcome(arrival));
    }
    // Sources whose turn had not come when the pass was cancelled do not arrive at all.
    report_.cancelled = !cancelled_.empty() || done_ < total_;
    report(std::move(batch));
    return std::move(report_);
}

void BatchWriter::countOne() {
    ++done_;
    if (context_.listener.progress) context_.listener.progress(done_, total_);
}

void BatchWriter::enqueue(Arrival arrival) {
    if (const auto* stories = std::get_if<SourceFetch::Stories>(&arrival.fetch.outcome)) {
        waitingStories_ += stories->list.size();
    }
    waiting_.push_back(std::move(arrival));
}

void BatchWriter::flushUnanswered() {
    for (auto& arrival : unanswered_) enqueue(std::move(arrival));
    unanswered_.clear();
}

/// Stores all waiting arrivals in one transaction, and reports them once it is committed.
void BatchWriter::write() {
    if (waiting_.empty()) return;
    auto& store = context_.store;
    auto transaction = store.transaction();
    auto merging = store.merging();
    CommittedBatch batch{.stamp = store.state().nextStamp()};
    for (auto& arrival : waiting_) {
        batch.outcomes.push_back(this->store(std::move(arrival), merging, batch));
    }
    const bool hasNews = std::ranges::any_of(
        batch.outcomes, [](const auto& outcome) { return outcome.merged.added > 0; });
    if (hasNews) store.state().set(DeskState::kLastArrival, context_.clock());
    transaction.commit();
    waiting_.clear();
    waitingStories_ = 0;
    lastWrite_ = SteadyClock::now();
    report(std::move(batch));
}

/// One silent server alone says nothing about the network, unless the system does.
bool BatchWriter::isWholeNetworkDown() const {
    return unanswered_.size() > 1 ||
           std::get<SourceFetch::Failed>(unanswered_.front().fetch.outcome).offline;
}

SourceOutcome BatchWriter::store(Arrival arrival, StoryMerge& merging, CommittedBatch& batch) {
    auto& [source, fetch, moment] = arrival;
    auto& sources = context_.store.sources();
    if (source.kind == NewsSource::Kind::custom && sources.isRemoved(source.id)) {
        // The user removed it during the fetch. With a status it would not count as fetched for
        // the first time if it is added again.
        return {.source = source, .kind = Kind::cancelled};
    }
    SourceStatus& status = context_.states.statuses[source.id];
    SourceHealth& health = context_.states.healths[source.id];
    MergeCount merged;
    Kind kind = Kind::unchanged;
    bool isEmpty = false;
    status.lastAttempt = moment;
    health.latency =
        std::chrono::duration_cast<std::chrono::milliseconds>(fetch.record.elapsed).count();
    health.bytes = static_cast<std::int64_t>(fetch.record.bytesOnWire);
    if (auto* failed = std::get_if<SourceFetch::Failed>(&fetch.outcome)) {
        kind = Kind::failed;
        status.lastError = std::move(failed->text);
        if (!health.failingSince) health.failingSince = moment;
    }
    if (auto* stories = std::get_if<SourceFetch::Stories>(&fetch.outcome)) {
        kind = Kind::stories;
        isEmpty = stories->list.empty();
        merged = storeStories(source, std::move(stories->list), moment, merging, batch);
        health.movedTo = fetch.record.movedTo;
    }
    if (kind != Kind::failed) {
        status.lastSuccess = moment;
        status.lastError.reset();
        health.failingSince.reset();
    }
    sources.setStatus(source.id, status);
    sources.setHealth(source.id, health);
    sources.addTry(source.id, tryOf(kind, merged, status, moment));
    auto outcome = outcomeOf(source, kind);
    outcome.error = status.lastError;
    outcome.merged = merged;
    outcome.isEmpty = isEmpty;
    outcome.record = std::move(fetch.record);
    return outcome;
}

/// Stores the stories of one feed and updates what its source's status says about them.
MergeCount BatchWriter::storeStories(const NewsSource& source, std::vector<Story> stories,
                                     Instant moment, StoryMerge& merging, CommittedBatch& batch) {
    SourceStatus& status = context_.states.statuses[source.id];
    SourceHealth& health = context_.states.healths[source.id];
    const auto& clock = context_.clockCheck;
    StoryMerge::Fetch terms{.seen = clock.corrected(moment), .isFirst = !health.newestStory};
    if (status.lastSuccess && hasPassed(kLongSilence, *status.lastSuccess, moment)) {
        terms.mostFresh = std::numeric_limits<std::size_t>::max();
    }
    if (!stories.empty()) health.newestStory = newestOf(stories);
    // A clock that seems wrong must not make stories too old.
    const auto oldest =
        clock.seemsWrong() ? Instant::min() : context_.settings.oldestStored(context_.clock());
    const auto wanted = storiesToStore(source, std::move(stories), {oldest, terms.seen});
    auto result = merging.merge(wanted, terms, batch.stamp.value());
    // Many stories take much memory, and a short command has no use for them.
    if (context_.listener.stored) {
        std::move(result.added.begin(), result.added.end(), std::back_inserter(batch.added));
        std::move(result.revised.begin(), result.revised.end(), std::back_inserter(batch.revised));
    }
    status.storyCount = static_cast<std::int64_t>(wanted.size() - result.count.collapsed);
    health.lastFullFetch = moment;
    health.collapsed = static_cast<std::int64_t>(result.count.collapsed);
    health.collided = static_cast<std::int64_t>(result.count.collided);
    return result.count;
}

SourceOutcome BatchWriter::outcomeOf(const NewsSource& source, Kind kind) const {
    SourceOutcome outcome{.source = source, .kind = kind};
    const auto& [statuses, healths] = context_.states;
    if (const auto status = statuses.find(source.id); status != statuses.end()) {
        outcome.status = status->second;
    }
    if (const auto health = healths.find(source.id); health != healths.end()) {
        outcome.health = health->second;
    }
    return outcome;
}

/// The outcome of a source that the pass does not blame: it was cancelled, or the network is
/// down.
SourceOutcome BatchWriter::unstoredOutcome(Arrival& arrival) const {
    auto& failed = std::get<SourceFetch::Failed>(arrival.fetch.outcome);
    auto outcome = outcomeOf(arrival.source, failed.cancelled ? Kind::cancelled : Kind::failed);
    outcome.error = std::move(failed.text);
    outcome.record = std::move(arrival.fetch.record);
    return outcome;
}

void BatchWriter::report(CommittedBatch batch) {
    if (batch.outcomes.empty()) return;
    report_.outcomes.insert(report_.outcomes.end(), batch.outcomes.begin(), batch.outcomes.end());
    if (context_.listener.stored) context_.listener.stored(std::move(batch));
}

}  // namespace app
