#include "Tarnwick_Brell/Desk/RefreshPass.h"

#include <algorithm>
#include <exception>
#include <random>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/deferred.hpp>
#include <boost/asio/experimental/parallel_group.hpp>
#include <boost/asio/this_coro.hpp>
#include <boost/asio/use_awaitable.hpp>

#include "NewsroomKit/Ingestion/FetchQueue.h"
#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Desk/BatchWriter.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace asio = boost::asio;

using kit::FetchQueue;
using kit::Instant;
using kit::NewsSource;
using kit::SourceFetch;
using Kind = SourceOutcome::Kind;

namespace {

// A server that keeps answering "unchanged" may be wrong, and stories that retention once
// dropped come back only with a full feed.
constexpr std::chrono::hours kFullFetchEvery{24};

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
        failed += outcome.kind == Kind::failed ? 1 : 0;
        added += outcome.merged.added;
    }
    kit::log(kit::LogCategory::desk, kit::LogLevel::info,
             "a pass ended (sources: {}, new stories: {}, failed: {}){}{}{}",
             report.outcomes.size(), added, failed, report.offline ? ", offline" : "",
             report.cancelled ? ", cancelled" : "",
             report.clockSeemsWrong ? ", the clock seems wrong" : "");
}

}  // namespace

bool hasPassed(std::chrono::duration<double> interval, Instant then, Instant now) {
    return now - then >= interval || now < then;
}

RefreshPass::RefreshPass(LocalStore& store, FetchStack& stack, kit::Clock clock,
                         PassSettings settings, Listener listener)
    : store_(store),
      stack_(stack),
      clock_(std::move(clock)),
      settings_(settings),
      listener_(std::move(listener)),
      states_{.statuses = store.sources().statuses(), .healths = store.sources().healths()},
      pauses_(store.hostPauses().load(clock_())) {}

RefreshPass::~RefreshPass() = default;

asio::awaitable<PassReport> RefreshPass::run(std::vector<NewsSource> sources) {
    co_await asio::this_coro::throw_if_cancelled(false);
    // Each pass reads the validators again: another program may have fetched meanwhile.
    const auto validators = store_.validators().load();
    stack_.http().validators().replace(validators);
    auto& clockCheck = stack_.feeds().clockCheck();
    clockCheck.reset();
    BatchWriter writer({store_, states_, clockCheck, clock_, settings_, listener_}, sources.size());
    auto due = dueSources(std::move(sources), writer);
    for (const auto& source : due) {
        if (isFetchedInFull(source)) stack_.http().validators().forget(source.feedURL);
    }

    const auto arrived = [&](const NewsSource& source, SourceFetch fetch) {
        const auto now = clock_();
        if (fetch.record.retryAfter &&
            !std::holds_alternative<SourceFetch::Stories>(fetch.outcome)) {
            backOff(source, *fetch.record.retryAfter, now);
        }
        writer.add({source, std::move(fetch), now});
    };
    const auto gate = [&](const NewsSource& source) { return canFetch(source, writer); };
    const auto executor = co_await asio::this_coro::executor;
    auto fetching = asio::co_spawn(executor, stack_.feeds().fetchAll(std::move(due), arrived, gate),
                                   asio::deferred);
    auto writing = asio::co_spawn(executor, writer.writeRegularly(), asio::deferred);
    const auto [order, fetchFailure, writeFailure] =
        co_await asio::experimental::make_parallel_group(std::move(fetching), std::move(writing))
            .async_wait(asio::experimental::wait_for_one(), asio::use_awaitable);
    for (const auto& failure : {fetchFailure, writeFailure}) {
        if (failure) std::rethrow_exception(failure);
    }

    auto report = writer.finish();
    report.ended = clock_();
    report.clockSeemsWrong = clockCheck.seemsWrong();
    if (writer.isAnswered() && !report.clockSeemsWrong) {
        report.droppedBefore = settings_.oldestStored(clock_());
    }
    finishPass(validators, report);
    logPass(report);
    co_return report;
}

bool RefreshPass::isDue(const NewsSource& source) const {
    const auto status = states_.statuses.find(source.id);
    if (settings_.scope == PassScope::named || status == states_.statuses.end() ||
        !status->second.lastAttempt) {
        return true;
    }
    return hasPassed(std::chrono::duration<double>(source.minimumInterval),
                     *status->second.lastAttempt, clock_());
}

bool RefreshPass::isFetchedInFull(const NewsSource& source) const {
    const auto health = states_.healths.find(source.id);
    return health == states_.healths.end() || !health->second.lastFullFetch ||
           hasPassed(kFullFetchEvery, *health->second.lastFullFetch, clock_());
}

std::vector<NewsSource> RefreshPass::dueSources(std::vector<NewsSource> sources,
                                                BatchWriter& writer) const {
    const auto waiting = std::stable_partition(
        sources.begin(), sources.end(), [&](const NewsSource& source) { return isDue(source); });
    for (auto source = waiting; source != sources.end(); ++source) {
        writer.skip(*source, Kind::notDue);
    }
    sources.erase(waiting, sources.end());
    return sources;
}

bool RefreshPass::canFetch(const NewsSource& source, BatchWriter& writer) const {
    if (settings_.scope == PassScope::named) return true;
    const auto pause = pauses_.find(FetchQueue::hostOf(source));
    if (pause == pauses_.end() || pause->second <= clock_()) return true;
    writer.skip(source, Kind::paused, pause->second);
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

void RefreshPass::finishPass(const kit::ValidatorTable::Entries& validators,
                             const PassReport& report) {
    auto transaction = store_.transaction();
    // After the stories: a validator without its stories would answer 304 for ever.
    store_.validators().save(validators, stack_.http().validators().entries());
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

}  // namespace app
