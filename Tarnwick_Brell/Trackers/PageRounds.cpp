#include "Tarnwick_Brell/Trackers/PageRounds.h"

#include <random>
#include <utility>
#include <variant>

#include <boost/asio/redirect_error.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/use_awaitable.hpp>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Pages/PageReader.h"
#include "NewsroomKit/Pages/PageSignals.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"
#include "Tarnwick_Brell/Trackers/TrackerJobs.h"

namespace app {

namespace asio = boost::asio;
using kit::FollowedPage;
using kit::HTTPClient;
using kit::PageOutcome;
using kit::PageVisit;

namespace {

constexpr std::chrono::seconds kHostPause{1};
/// A look that is planned for later was planned before the clock was set back.
constexpr std::chrono::hours kFarthestLook{1};

double pageSpread() {
    std::random_device source;
    return std::uniform_real_distribution<double>(-1, 1)(source);
}

std::chrono::minutes intervalOf(const FollowedPage& page) {
    return page.isUrgent ? kit::kUrgentPageInterval : kit::kPageInterval;
}

/// A look that confirms another one, or weighs against it, must not come from a cache.
bool mayBeConditional(const kit::PageWatchState& state) {
    return state.rules == kit::pageRulesVersion && !state.candidate && !state.doubted;
}

std::optional<kit::PageMiss> missOf(const HTTPClient::Exchange& exchange) {
    using Kind = kit::HTTPClientError::Kind;
    if (exchange.result) return std::nullopt;
    const auto& error = exchange.result.error();
    if (error == kit::FetchError(kit::HTTPClientError{.kind = Kind::tooLarge}))
        return kit::PageMiss::tooLarge;
    // The status says more than this does.
    const bool isStatus = exchange.record.status >= 400;
    return isStatus ? std::nullopt : std::optional(kit::PageMiss::noAnswer);
}

PageVisit visitOf(const HTTPClient::Exchange& exchange, kit::Instant now) {
    PageVisit visit;
    visit.at = now;
    visit.status = exchange.record.status;
    visit.url = exchange.record.url;
    visit.miss = missOf(exchange);
    visit.contentType = exchange.headers.find("content-type").value_or("");
    if (const auto tag = exchange.headers.find("etag")) visit.entityTag = *tag;
    if (const auto date = exchange.headers.find("last-modified")) visit.lastModified = *date;
    if (!exchange.result) return visit;
    if (const auto* fresh = std::get_if<HTTPClient::Fresh>(&exchange.result.value())) {
        visit.bytes = fresh->body;
    } else {
        visit.isNotModified = true;
    }
    return visit;
}

kit::PageRevision revisionOf(const FollowedPage& page, const kit::PageWatch& watch,
                             const PageOutcome& outcome, const PageVisit& visit) {
    using Kind = kit::PageRevision::Kind;
    kit::PageRevision revision;
    revision.address = page.address;
    revision.key = watch.state.key;
    revision.rules = watch.state.rules;
    revision.seenAt = watch.state.seenAt;
    revision.confirmedAt = visit.at;
    revision.statedDay = watch.state.statedDay;
    revision.url = visit.url;
    revision.contentType = visit.contentType;
    revision.entityTag = visit.entityTag;
    revision.lastModified = visit.lastModified;
    if (outcome.kind == PageOutcome::Kind::baseline) return revision;
    const auto summary = kit::pageSummary(outcome.before, outcome.after);
    revision.kind = outcome.kind == PageOutcome::Kind::returned ? Kind::returned : Kind::changed;
    revision.unchangedAt = outcome.unchangedAt;
    revision.count = kit::changeCountText(summary);
    revision.sentence = kit::summarySentence(summary);
    return revision;
}

bool isRevision(PageOutcome::Kind kind) {
    using enum PageOutcome::Kind;
    return kind == baseline || kind == changed || kind == returned;
}

bool hasNewTexts(PageOutcome::Kind kind) {
    using enum PageOutcome::Kind;
    return isRevision(kind) || kind == order || kind == candidate || kind == learned;
}

}  // namespace

std::vector<FollowedPage> PageRounds::duePages(LocalStore& store, kit::Instant now) {
    std::vector<FollowedPage> due;
    for (const auto& status : followedPages(store)) {
        const auto next = status.nextLook;
        if (!next || *next <= now || *next > now + kFarthestLook) due.push_back(status.page);
    }
    return due;
}

asio::awaitable<std::vector<VisitedPage>> PageRounds::visit(std::vector<FollowedPage> pages) {
    std::vector<VisitedPage> visited;
    for (auto& page : pages) visited.push_back(co_await visit(std::move(page)));
    co_return visited;
}

asio::awaitable<void> PageRounds::leaveHostAlone(const std::string& address) {
    const auto parsed = kit::WebAddress::parse(address);
    auto& last = lastAsked_[parsed ? parsed->host : address];
    const auto now = std::chrono::steady_clock::now();
    const auto next = last.time_since_epoch().count() == 0 ? now : std::max(now, last + kHostPause);
    last = next;
    if (next == now) co_return;
    asio::steady_timer timer(co_await asio::this_coro::executor, next);
    boost::system::error_code stoppedEarly;
    co_await timer.async_wait(asio::redirect_error(asio::use_awaitable, stoppedEarly));
}

asio::awaitable<VisitedPage> PageRounds::visit(FollowedPage page) {
    co_await asio::this_coro::throw_if_cancelled(false);
    VisitedPage visited{.page = page};
    if (auto pause = fetcher_.pauseText(page.address)) {
        visited.reason = std::move(*pause);
        co_return visited;
    }
    co_await leaveHostAlone(page.address);
    const auto state = fetcher_.store().pages().state(page.address).value_or(kit::PageWatchState());
    HTTPClient::Request request{.url = page.address, .byteLimit = kit::longestPage};
    if (mayBeConditional(state)) request.validators = {state.entityTag, state.lastModified};
    const auto exchange = co_await fetcher_.http().exchange(std::move(request));
    if (exchange.record.retryAfter) fetcher_.backOff(page.address, *exchange.record.retryAfter);
    if (!exchange.result && isOurFault(exchange.result.error())) {
        visited.reason = exchange.result.error().description();
        co_return visited;
    }
    visited.outcome = record(page, visitOf(exchange, fetcher_.now()), state.key);
    if (!visited.outcome) visited.reason = "Another program has just looked at it.";
    co_return visited;
}

/// Nothing when the answer refers to a revision that is no longer the current one.
std::optional<PageOutcome> PageRounds::record(const FollowedPage& page, PageVisit visit,
                                              const std::string& expectedKey) {
    auto& store = fetcher_.store();
    auto transaction = store.transaction();
    auto& pages = store.pages();
    auto watch = pages.watch(page.address);
    if (visit.isNotModified && watch.state.key != expectedKey) return std::nullopt;
    const auto stored = pages.state(page.address);
    const bool hasNewRules = stored && stored->rules != watch.state.rules;
    const auto leftOutBefore = watch.state.volatileBlocks;
    const auto outcome = kit::applyVisit(watch, visit);
    if (watch.state.volatileBlocks != leftOutBefore)
        updateEarlierKeys(store, page.address, watch.state, leftOutBefore);
    const auto next = kit::nextLook(watch.state, visit.at, intervalOf(page), pageSpread());
    pages.storeState(page.address, watch.state, {.last = visit.at, .next = next});
    if (hasNewRules || hasNewTexts(outcome.kind)) pages.storeTexts(page.address, watch);
    if (isRevision(outcome.kind))
        pages.add(revisionOf(page, watch, outcome, visit), watch.blocks, visit.bytes);
    if (const auto told = kit::signalOf(outcome, watch.state, page.name, page.address, visit.at)) {
        store.signalLog().add({&*told, 1});
    }
    transaction.commit();
    return outcome;
}

namespace {

asio::awaitable<AnyCachedValue> pageRound(TrackerFetcher& fetcher) {
    kit::CachedValue<std::size_t> round;
    PageRounds rounds(fetcher);
    auto due = PageRounds::duePages(fetcher.store(), fetcher.now());
    const auto visited = co_await rounds.visit(std::move(due));
    std::size_t read = 0;
    std::string failure;
    for (const auto& one : visited) {
        const bool isRead = one.outcome && !one.outcome->miss;
        read += isRead ? 1 : 0;
        if (!isRead && failure.empty()) {
            failure = one.page.name + ": " +
                      (one.outcome ? std::string(label(*one.outcome->miss)) : one.reason);
        }
    }
    round.value = read;
    round.fetchedAt = fetcher.now();
    if (read == 0 && !failure.empty()) round.error = std::move(failure);
    co_return AnyCachedValue(std::move(round));
}

}  // namespace

AnyTrackedFile pagesFile(kit::Clock clock) {
    AnyTrackedFile file;
    file.tracker = Tracker::pages;
    file.name = "pages";
    file.title = "The followed pages";
    file.load = [](LocalStore&) { return AnyCachedValue(kit::CachedValue<std::size_t>()); };
    file.fetch = pageRound;
    file.isDue = [clock = std::move(clock)](LocalStore& store) {
        return !PageRounds::duePages(store, clock()).empty();
    };
    return file;
}

}  // namespace app
