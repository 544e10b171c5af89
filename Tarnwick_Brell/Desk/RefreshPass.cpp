#include "Tarnwick_Brell/Desk/RefreshPass.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <random>

#include <boost/asio/as_tuple.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/deferred.hpp>
#include <boost/asio/experimental/parallel_group.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/this_coro.hpp>
#include <boost/asio/use_awaitable.hpp>

#include "NewsroomKit/Ingestion/FetchQueue.h"
#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Desk/StoryIntake.h"

namespace app {

namespace asio = boost::asio;

using kit::FetchQueue;
using kit::Instant;
using kit::NewsSource;
using kit::SourceFetch;
using kit::Story;
using Kind = SourceOutcome::Kind;

namespace {

// Arrivals wait in memory and are written in few transactions. Stories of many feeds lie all
// over the library, so that each transaction writes most of its pages again: when many arrive,
// they are written less often.
constexpr std::size_t kStoriesPerTransaction = 16'000;
constexpr std::size_t kManyStories = 1000;
constexpr std::chrono::seconds kBetweenWrites{1};
constexpr std::chrono::seconds kBetweenWritesOfMany{10};

// A server that goes on answering "unchanged" may be wrong; and what retention once dropped
// comes back only in full.
constexpr std::chrono::hours kFullFetchEvery{24};

/// Whether `interval` has gone by since `then`. A clock that was set back must not silence
/// anything.
bool hasPassed(std::chrono::duration<double> interval, Instant then, Instant now) {
    return now - then >= interval || now < then;
}

bool hasAnswer(const SourceFetch& fetch) {
    return !std::holds_alternative<SourceFetch::Failed>(fetch.outcome) || fetch.record.status != 0;
}

std::chrono::seconds withJitter(std::chrono::seconds pause) {
    std::random_device source;
    std::uniform_int_distribution<std::chrono::seconds::rep> more(0, pause.count() / 10);
    return std::min<std::chrono::seconds>(pause + std::chrono::seconds(more(source)),
                                          HostBackoff::kLongest);
}

void logPass(const PassReport& report) {
    std::size_t failed = 0;
    std::size_t added = 0;
    for (const auto& outcome : report.outcomes) {
        failed += outcome.kind == SourceOutcome::Kind::failed ? 1 : 0;
        added += outcome.merged.added;
    }
    kit::log(kit::LogCategory::desk, kit::LogLevel::info,
             "a pass ended (sources: {}, new stories: {}, failed: {}){}{}{}",
             report.outcomes.size(), added, failed, report.offline ? ", offline" : "",
             report.cancelled ? ", cancelled" : "",
             report.clockSeemsWrong ? ", the clock seems wrong" : "");
}

}  // namespace

struct RefreshPass::Arrived {
    NewsSource source;
    SourceFetch fetch;
    Instant moment{};
};

/// What arrives waits here until it is written. Failures without any answer wait until some
/// source answers: when none does, this computer is to blame.
class RefreshPass::BatchWriter {
public:
    BatchWriter(RefreshPass& pass, std::size_t total) : pass_(pass), total_(total) {}

    /// Of a source that was not asked.
    void leaveOut(SourceOutcome outcome) {
        countOne();
        CommittedBatch step;
        step.outcomes.push_back(std::move(outcome));
        report(std::move(step));
    }

    void add(Arrived arrived) {
        countOne();
        const auto* failed = std::get_if<SourceFetch::Failed>(&arrived.fetch.outcome);
        if (failed && failed->cancelled) {
            unblamed_.push_back(std::move(arrived));
        } else if (hasAnswer(arrived.fetch)) {
            answered_ = true;
            flushUnanswered();
            take(std::move(arrived));
        } else if (answered_) {
            take(std::move(arrived));
        } else {
            held_.push_back(std::move(arrived));
        }
        if (waitingStories_ >= kStoriesPerTransaction) write();
    }

    /// One transaction; what it kept is reported only when it is safe.
    void write() {
        if (waiting_.empty()) return;
        auto transaction = pass_.store_.transaction();
        auto merging = pass_.store_.merging();
        CommittedBatch step{.stamp = pass_.store_.state().nextStamp()};
        for (auto& arrived : waiting_) {
            step.outcomes.push_back(pass_.keep(std::move(arrived), merging, step));
        }
        const bool hasNews = std::ranges::any_of(
            step.outcomes, [](const auto& outcome) { return outcome.merged.added > 0; });
        if (hasNews) {
            pass_.store_.state().set(DeskState::kLastArrival, pass_.clock_());
        }
        transaction.commit();
        waiting_.clear();
        waitingStories_ = 0;
        lastWrite_ = SteadyClock::now();
        report(std::move(step));
    }

    /// Writes what has come every second or, after the first time, every few seconds while
    /// many stories come, whatever still keeps the pass waiting.
    asio::awaitable<void> writeRegularly() {
        // The end of the fetching may come when the timer has just run out: then nothing is
        // waited for any more, and that is no failure.
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

    bool isAnswered() const { return answered_; }

    /// After the last arrival.
    PassReport finish() {
        report_.offline = !answered_ && !held_.empty() && isWholeNetwork();
        if (!report_.offline) flushUnanswered();
        write();
        CommittedBatch step;
        for (auto* arrivals : {&held_, &unblamed_}) {
            for (auto& arrived : *arrivals) step.outcomes.push_back(cancelled(arrived));
        }
        // Sources whose turn had not come do not arrive at all.
        report_.cancelled = !unblamed_.empty() || done_ < total_;
        report(std::move(step));
        return std::move(report_);
    }

private:
    using SteadyClock = std::chrono::steady_clock;

    void countOne() {
        ++done_;
        if (pass_.listener_.progress) pass_.listener_.progress(done_, total_);
    }

    void take(Arrived arrived) {
        if (const auto* stories = std::get_if<SourceFetch::Stories>(&arrived.fetch.outcome)) {
            waitingStories_ += stories->list.size();
        }
        waiting_.push_back(std::move(arrived));
    }

    void flushUnanswered() {
        for (auto& arrived : held_) take(std::move(arrived));
        held_.clear();
    }

    /// One silent server alone says nothing about the network, unless the system does.
    bool isWholeNetwork() const {
        return held_.size() > 1 ||
               std::get<SourceFetch::Failed>(held_.front().fetch.outcome).offline;
    }

    SourceOutcome cancelled(Arrived& arrived) const {
        auto& failed = std::get<SourceFetch::Failed>(arrived.fetch.outcome);
        auto outcome =
            pass_.outcomeOf(arrived.source, failed.cancelled ? Kind::cancelled : Kind::failed);
        outcome.error = std::move(failed.text);
        outcome.record = std::move(arrived.fetch.record);
        return outcome;
    }

    void report(CommittedBatch step) {
        if (step.outcomes.empty()) return;
        report_.outcomes.insert(report_.outcomes.end(), step.outcomes.begin(), step.outcomes.end());
        if (pass_.listener_.kept) pass_.listener_.kept(std::move(step));
    }

    RefreshPass& pass_;
    PassReport report_;
    std::vector<Arrived> waiting_;
    std::vector<Arrived> held_;
    std::vector<Arrived> unblamed_;  ///< cancelled
    std::size_t waitingStories_ = 0;
    std::optional<SteadyClock::time_point> lastWrite_;
    std::size_t done_ = 0;
    std::size_t total_;
    bool answered_ = false;
};

RefreshPass::RefreshPass(LocalStore& store, FetchStack& engine, kit::Clock clock,
                         PassSettings settings, Listener listener)
    : store_(store),
      engine_(engine),
      clock_(std::move(clock)),
      settings_(settings),
      listener_(std::move(listener)),
      statuses_(store.sources().statuses()),
      healths_(store.sources().healths()),
      pauses_(store.hostPauses().load(clock_())) {}

RefreshPass::~RefreshPass() = default;

asio::awaitable<PassReport> RefreshPass::run(std::vector<NewsSource> sources) {
    co_await asio::this_coro::throw_if_cancelled(false);
    // Read anew for each pass: another program may have fetched meanwhile.
    const auto validators = store_.validators().load();
    engine_.http().validators().replace(validators);
    engine_.feeds().clockCheck().reset();
    BatchWriter intake(*this, sources.size());
    auto due = dueSources(std::move(sources), intake);
    for (const auto& source : due) {
        if (isFetchedInFull(source)) engine_.http().validators().forget(source.feedURL);
    }

    const auto arrived = [&](const NewsSource& source, SourceFetch fetch) {
        const auto now = clock_();
        if (fetch.record.retryAfter &&
            !std::holds_alternative<SourceFetch::Stories>(fetch.outcome)) {
            backOff(source, *fetch.record.retryAfter, now);
        }
        intake.add({source, std::move(fetch), now});
    };
    const auto gate = [&](const NewsSource& source) { return canFetch(source, intake); };
    const auto executor = co_await asio::this_coro::executor;
    auto fetching = asio::co_spawn(
        executor, engine_.feeds().fetchAll(std::move(due), arrived, gate), asio::deferred);
    auto writing = asio::co_spawn(executor, intake.writeRegularly(), asio::deferred);
    const auto [order, fetchFailure, writeFailure] =
        co_await asio::experimental::make_parallel_group(std::move(fetching), std::move(writing))
            .async_wait(asio::experimental::wait_for_one(), asio::use_awaitable);
    for (const auto& failure : {fetchFailure, writeFailure}) {
        if (failure) std::rethrow_exception(failure);
    }

    auto report = intake.finish();
    report.ended = clock_();
    report.clockSeemsWrong = clockCheck().seemsWrong();
    if (intake.isAnswered() && !report.clockSeemsWrong) report.droppedBefore = cutoff();
    finishPass(validators, report);
    logPass(report);
    co_return report;
}

bool RefreshPass::isDue(const NewsSource& source) const {
    const auto status = statuses_.find(source.id);
    if (settings_.scope == PassScope::named || status == statuses_.end() ||
        !status->second.lastAttempt) {
        return true;
    }
    return hasPassed(std::chrono::duration<double>(source.minimumInterval),
                     *status->second.lastAttempt, clock_());
}

bool RefreshPass::isFetchedInFull(const NewsSource& source) const {
    const auto health = healths_.find(source.id);
    return health == healths_.end() || !health->second.lastFullFetch ||
           hasPassed(kFullFetchEvery, *health->second.lastFullFetch, clock_());
}

std::vector<NewsSource> RefreshPass::dueSources(std::vector<NewsSource> sources,
                                                BatchWriter& intake) {
    const auto waiting = std::stable_partition(
        sources.begin(), sources.end(), [&](const NewsSource& source) { return isDue(source); });
    for (auto source = waiting; source != sources.end(); ++source) {
        intake.leaveOut(outcomeOf(*source, Kind::notDue));
    }
    sources.erase(waiting, sources.end());
    return sources;
}

bool RefreshPass::canFetch(const NewsSource& source, BatchWriter& intake) {
    if (settings_.scope == PassScope::named) return true;
    const auto pause = pauses_.find(FetchQueue::hostOf(source));
    if (pause == pauses_.end() || pause->second <= clock_()) return true;
    auto outcome = outcomeOf(source, Kind::paused);
    outcome.pausedUntil = pause->second;
    intake.leaveOut(std::move(outcome));
    return false;
}

void RefreshPass::backOff(const NewsSource& source, std::chrono::seconds wanted, Instant now) {
    if (wanted <= std::chrono::seconds(0)) return;
    const auto host = FetchQueue::hostOf(source);
    const auto until =
        now + withJitter(std::min<std::chrono::seconds>(wanted, HostBackoff::kLongest));
    pauses_[host] = until;
    store_.hostPauses().set(host, until);
}

SourceOutcome RefreshPass::outcomeOf(const NewsSource& source, Kind kind) const {
    SourceOutcome outcome{.source = source, .kind = kind};
    if (const auto status = statuses_.find(source.id); status != statuses_.end()) {
        outcome.status = status->second;
    }
    if (const auto health = healths_.find(source.id); health != healths_.end()) {
        outcome.health = health->second;
    }
    return outcome;
}

SourceOutcome RefreshPass::keep(Arrived arrived, StoryMerge& merging, CommittedBatch& step) {
    auto& [source, fetch, moment] = arrived;
    if (source.kind == NewsSource::Kind::custom && store_.sources().isRemoved(source.id)) {
        // While it was fetched. A status would make it an old acquaintance if it is added again.
        return {.source = source, .kind = Kind::cancelled};
    }
    SourceStatus& status = statuses_[source.id];
    SourceHealth& health = healths_[source.id];
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
        merged = keepStories(source, std::move(stories->list), moment, merging, step);
        health.movedTo = fetch.record.movedTo;
    }
    if (kind != Kind::failed) {
        status.lastSuccess = moment;
        status.lastError.reset();
        health.failingSince.reset();
    }
    store_.sources().setStatus(source.id, status);
    store_.sources().setHealth(source.id, health);
    auto outcome = outcomeOf(source, kind);
    outcome.error = status.lastError;
    outcome.merged = merged;
    outcome.isEmpty = isEmpty;
    outcome.record = std::move(fetch.record);
    return outcome;
}

/// What a feed brought, and what its source's status says of it.
MergeCount RefreshPass::keepStories(const NewsSource& source, std::vector<Story> stories,
                                    Instant moment, StoryMerge& merging, CommittedBatch& step) {
    SourceStatus& status = statuses_[source.id];
    SourceHealth& health = healths_[source.id];
    StoryMerge::Fetch terms{.seen = clockCheck().corrected(moment), .isFirst = !health.newestStory};
    // After a long silence a crowd of news is no wonder.
    if (status.lastSuccess && hasPassed(kFullFetchEvery, *status.lastSuccess, moment)) {
        terms.mostFresh = std::numeric_limits<std::size_t>::max();
    }
    if (!stories.empty()) health.newestStory = newestOf(stories);
    // By a clock that seems wrong no story is too old.
    const auto oldest = clockCheck().seemsWrong() ? Instant::min() : cutoff();
    const auto wanted = storiesToKeep(source, std::move(stories), {oldest, terms.seen});
    auto result = merging.merge(wanted, terms, step.stamp.value());
    // A crowd of stories takes much memory, and a short command does not want them.
    if (listener_.kept) {
        std::move(result.added.begin(), result.added.end(), std::back_inserter(step.added));
        std::move(result.revised.begin(), result.revised.end(), std::back_inserter(step.revised));
    }
    status.storyCount = static_cast<std::int64_t>(wanted.size() - result.count.collapsed);
    health.lastFullFetch = moment;
    health.collapsed = static_cast<std::int64_t>(result.count.collapsed);
    health.collided = static_cast<std::int64_t>(result.count.collided);
    return result.count;
}

void RefreshPass::finishPass(const kit::ValidatorTable::Entries& validators,
                             const PassReport& report) {
    auto transaction = store_.transaction();
    // After the stories: a validator without its stories would answer 304 for ever.
    store_.validators().save(validators, engine_.http().validators().entries());
    if (report.droppedBefore) {
        store_.stories().dropPublishedBefore(*report.droppedBefore, report.ended);
        store_.state().set(DeskState::kClockConfirmed, report.ended);
    }
    store_.stories().dropBeyond(settings_.ceiling, report.ended);
    store_.hostPauses().finishPass(report.ended);
    if (settings_.scope == PassScope::all && !report.offline && !report.cancelled) {
        store_.state().set(DeskState::kLastRefresh, report.ended);
    }
    transaction.commit();
}

Instant RefreshPass::cutoff() const {
    return clock_() - std::chrono::duration_cast<Instant::duration>(settings_.retention);
}

}  // namespace app
