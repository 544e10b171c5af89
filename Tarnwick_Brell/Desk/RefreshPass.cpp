#include "Tarnwick_Brell/Desk/RefreshPass.h"

#include <algorithm>
#include <exception>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/steady_timer.hpp>

#include "NewsroomKit/Editorial/AppleTopic.h"

namespace desk {

namespace asio = boost::asio;

using newsroom::Instant;
using newsroom::NewsSource;
using newsroom::SourceFetch;
using newsroom::Story;

namespace {

// Arrivals wait in memory and are written in few, short transactions: other programs get
// their turn, and a crowd of sources does not pile up.
constexpr std::size_t kStoriesPerTransaction = 4000;
constexpr std::chrono::seconds kLongestInMemory{1};

}  // namespace

RefreshPass::RefreshPass(LocalStore& store, newsroom::FeedClient& client,
                         newsroom::FeedClient::Clock clock, Settings settings)
    : store_(store),
      client_(client),
      clock_(std::move(clock)),
      settings_(settings),
      statuses_(store.sources().statuses()) {}

/// What arrives waits here until it is written.
class RefreshPass::Intake {
public:
    Intake(RefreshPass& pass, const Progress& progress) : pass_(pass), progress_(progress) {}

    void report(SourceOutcome outcome) {
        if (progress_) progress_(outcome);
        outcomes_.push_back(std::move(outcome));
    }

    void add(Arrival arrival) {
        if (const auto* stories = std::get_if<SourceFetch::Stories>(&arrival.fetch.outcome)) {
            waitingStories_ += stories->list.size();
        }
        waiting_.push_back(std::move(arrival));
        if (waitingStories_ >= kStoriesPerTransaction) write();
    }

    /// One transaction; what it kept is reported only when it is safe.
    void write() {
        if (waiting_.empty()) return;
        auto transaction = pass_.store_.transaction();
        std::vector<SourceOutcome> kept;
        for (auto& arrival : waiting_) kept.push_back(pass_.keep(std::move(arrival)));
        transaction.commit();
        waiting_.clear();
        waitingStories_ = 0;
        for (auto& outcome : kept) report(std::move(outcome));
    }

    /// Writes what has come every second, whatever still keeps the pass waiting.
    void writeRegularly(asio::steady_timer& alarm) {
        write();
        alarm.expires_after(kLongestInMemory);
        alarm.async_wait([this, &alarm](boost::system::error_code) { writeRegularly(alarm); });
    }

    std::vector<SourceOutcome> outcomes() { return std::move(outcomes_); }

private:
    RefreshPass& pass_;
    const Progress& progress_;
    std::vector<SourceOutcome> outcomes_;
    std::vector<Arrival> waiting_;
    std::size_t waitingStories_ = 0;
};

std::vector<SourceOutcome> RefreshPass::run(asio::io_context& io, std::vector<NewsSource> sources,
                                            const Progress& progress) {
    Intake intake(*this, progress);
    const auto waiting = std::stable_partition(
        sources.begin(), sources.end(),
        [&](const NewsSource& source) { return isDue(source, statuses_[source.id]); });
    for (auto source = waiting; source != sources.end(); ++source) {
        intake.report({.source = *source, .status = statuses_[source->id]});
    }
    sources.erase(waiting, sources.end());

    const auto arrived = [&](const NewsSource& source, SourceFetch fetch) {
        intake.add({source, std::move(fetch), clock_()});
    };
    std::exception_ptr failure;
    asio::co_spawn(io, client_.fetchAll(std::move(sources), arrived),
                   [&](std::exception_ptr error) {
                       failure = error;
                       io.stop();
                   });
    asio::steady_timer alarm(io);
    intake.writeRegularly(alarm);
    io.restart();
    io.run();
    if (failure) std::rethrow_exception(failure);

    intake.write();
    auto transaction = store_.transaction();
    store_.stories().dropPublishedBefore(cutoff());
    transaction.commit();
    return intake.outcomes();
}

bool RefreshPass::isDue(const NewsSource& source, const SourceStatus& status) const {
    if (settings_.intervals == Intervals::overridden || !status.lastAttempt) return true;
    const auto since = clock_() - *status.lastAttempt;
    // A clock that was set back must not silence a source.
    return since >= std::chrono::duration<double>(source.minimumInterval) ||
           since < Instant::duration::zero();
}

SourceOutcome RefreshPass::keep(Arrival arrival) {
    auto& [source, fetch, moment] = arrival;
    SourceStatus& status = statuses_[source.id];
    status.lastAttempt = moment;
    SourceOutcome outcome{.source = source, .record = fetch.record};
    if (auto* failed = std::get_if<SourceFetch::Failed>(&fetch.outcome)) {
        outcome.kind = SourceOutcome::Kind::failed;
        status.lastError = std::move(failed->text);
    } else {
        outcome.kind = SourceOutcome::Kind::unchanged;
        status.lastSuccess = moment;
        status.lastError.reset();
    }
    if (auto* stories = std::get_if<SourceFetch::Stories>(&fetch.outcome)) {
        outcome.kind = SourceOutcome::Kind::stories;
        const auto kept = belonging(source, std::move(stories->list));
        status.storyCount = static_cast<std::int64_t>(kept.size());
        outcome.merged =
            store_.merging().merge(kept, {.seen = moment}, store_.state().nextStamp()).count;
    }
    store_.sources().setStatus(source.id, status);
    outcome.status = status;
    return outcome;
}

std::vector<Story> RefreshPass::belonging(const NewsSource& source,
                                          std::vector<Story> stories) const {
    const Instant oldest = cutoff();
    std::erase_if(stories, [&](const Story& story) {
        if (story.publishedAt < oldest) return true;
        return source.onlyApple && !newsroom::AppleTopic::matches(story.title) &&
               !newsroom::AppleTopic::matches(story.summary);
    });
    return stories;
}

Instant RefreshPass::cutoff() const {
    return clock_() - std::chrono::duration_cast<Instant::duration>(settings_.retention);
}

}  // namespace desk
