#include "Tarnwick_Brell/Desk/LinkResolver.h"

#include <algorithm>
#include <utility>
#include <variant>

#include <boost/asio/as_tuple.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/this_coro.hpp>
#include <boost/asio/use_awaitable.hpp>

#include "NewsroomKit/Ingestion/CreditHosts.h"
#include "NewsroomKit/Ingestion/LinkedText.h"
#include "NewsroomKit/Links/RedirectLink.h"
#include "NewsroomKit/Links/RedirectPage.h"
#include "NewsroomKit/Log/Log.h"
#include "NewsroomKit/Outlets/Outlet.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "Tarnwick_Brell/Desk/DeskJobs.h"
#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace asio = boost::asio;

namespace {

constexpr std::string_view kHistoryKey = "linkHistory";
constexpr std::size_t kMostWaiting = 500;
constexpr std::chrono::hours kSameHeadlineSpan{48};
constexpr std::size_t kBatchAnswerBytes = 256 * 1024;
constexpr int kTooManyRequests = 429;

}  // namespace

LinkResolver::LinkResolver(DeskJobs& jobs, kit::Clock clock)
    : jobs_(jobs), clock_(std::move(clock)) {}

void LinkResolver::want(std::vector<std::string> storyIDs, Urgency urgency) {
    if (storyIDs.empty()) return;
    jobs_.worker().spawn([this, storyIDs = std::move(storyIDs), urgency](
                             WorkerContext& context) { return work(context, storyIDs, urgency); },
                         jobs_.reportFailure());
}

asio::awaitable<void> LinkResolver::work(WorkerContext& context, std::vector<std::string> storyIDs,
                                         Urgency urgency) {
    co_await asio::this_coro::throw_if_cancelled(false);
    if (!jobs_.hasUpdates()) co_return;
    for (const auto& id : storyIDs) enqueue(context, id, urgency);
    if (isWorking_) co_return;
    struct Working {
        bool& is;
        explicit Working(bool& flag) : is(flag) { is = true; }
        ~Working() { is = false; }
    } const working(isWorking_);
    const auto cancellation = co_await asio::this_coro::cancellation_state;
    while (!waiting_.empty() && cancellation.cancelled() == asio::cancellation_type::none) {
        if (!co_await waitForTurn(context)) co_return;
        if (waiting_.empty()) break;
        auto id = std::move(waiting_.front());
        waiting_.pop_front();
        co_await ask(context, std::move(id));
    }
}

void LinkResolver::enqueue(WorkerContext& context, const std::string& storyID, Urgency urgency) {
    auto stored = find(context, storyID);
    if (!stored) return;
    if (const auto link = knownArticle(context, stored->story)) {
        return store(context, std::move(*stored), *link);
    }
    if (history(context).hasFailed(storyID, clock_())) return;
    const auto place = std::find(waiting_.begin(), waiting_.end(), storyID);
    if (place != waiting_.end()) {
        if (urgency == Urgency::later) return;
        waiting_.erase(place);
    }
    if (urgency == Urgency::soon) {
        waiting_.push_front(storyID);
    } else if (waiting_.size() < kMostWaiting) {
        waiting_.push_back(storyID);
    }
}

asio::awaitable<void> LinkResolver::ask(WorkerContext& context, std::string storyID) {
    auto stored = find(context, storyID);
    if (!stored) co_return;
    // GCC 12 destroys a request twice that is made within the awaiting expression.
    kit::HTTPClient::Request pageRequest{.url = stored->story.link,
                                         .byteLimit = kit::kRedirectPageBytes,
                                         .namedBy = kit::NamedBy::publicPage};
    const auto body = co_await send(context, storyID, std::move(pageRequest));
    if (!body) co_return;
    const auto page = kit::readRedirectPage(*body);
    if (page.asksForConsent) co_return leaveAlone(context, std::move(storyID));
    for (const auto& link : page.articles) {
        if (suits(link, stored->story)) co_return store(context, std::move(*stored), link);
    }
    if (!page.signature) co_return fail(context, std::move(storyID));
    if (!co_await waitForTurn(context)) co_return;
    kit::HTTPClient::Request batchRequest{.url = std::string(kit::kBatchAddress),
                                          .method = kit::HTTPMethod::post,
                                          .body = kit::batchRequestBody(*page.signature),
                                          .contentType = std::string(kit::kBatchContentType),
                                          .byteLimit = kBatchAnswerBytes,
                                          .namedBy = kit::NamedBy::publicPage};
    const auto answer = co_await send(context, storyID, std::move(batchRequest));
    if (!answer) co_return;
    const auto link = kit::articleInBatchAnswer(*answer);
    if (!link || !suits(*link, stored->story)) co_return fail(context, std::move(storyID));
    store(context, std::move(*stored), *link);
}

asio::awaitable<LinkResolver::Answer> LinkResolver::send(WorkerContext& context,
                                                         std::string storyID,
                                                         kit::HTTPClient::Request request) {
    history(context).addRequest(clock_());
    saveHistory(context);
    auto exchange = co_await context.stack.http().exchange(std::move(request));
    if (exchange.result) {
        auto* fresh = std::get_if<kit::HTTPClient::Fresh>(&exchange.result.value());
        if (fresh) co_return std::move(fresh->body);
    }
    if (exchange.record.status == 0) {
        waiting_.clear();
    } else if (exchange.record.status == kTooManyRequests) {
        leaveAlone(context, std::move(storyID));
    } else {
        fail(context, std::move(storyID));
    }
    co_return std::nullopt;
}

asio::awaitable<bool> LinkResolver::waitForTurn(WorkerContext& context) {
    co_await asio::this_coro::throw_if_cancelled(false);
    const auto cancellation = co_await asio::this_coro::cancellation_state;
    asio::steady_timer timer(co_await asio::this_coro::executor);
    while (cancellation.cancelled() == asio::cancellation_type::none) {
        const auto now = clock_();
        const auto pause = history(context).nextRequest(now) - now;
        if (pause <= kit::Instant::duration::zero()) co_return true;
        timer.expires_after(std::chrono::duration_cast<std::chrono::milliseconds>(pause) +
                            std::chrono::milliseconds(1));
        co_await timer.async_wait(asio::as_tuple(asio::use_awaitable));
    }
    co_return false;
}

/// Nothing when the story is gone or its article is known.
std::optional<StoredStory> LinkResolver::find(WorkerContext& context,
                                              const std::string& storyID) const {
    auto found = context.store.stories().findByID(storyID, 1);
    const bool wanted =
        !found.empty() && found[0].story.id == storyID && found[0].story.needsArticleLink();
    return wanted ? std::optional(std::move(found[0])) : std::nullopt;
}

/// The article as far as the desk can tell without asking anyone.
std::optional<std::string> LinkResolver::knownArticle(WorkerContext& context,
                                                      const kit::Story& story) const {
    if (const auto identifier = kit::redirectIdentifier(story.link)) {
        const auto address = kit::addressInIdentifier(*identifier);
        auto link = address ? kit::articleLinkOf(*address) : std::nullopt;
        if (link && suits(*link, story)) return link;
    }
    const auto host = publisherHost(story);
    if (host.empty()) return std::nullopt;
    for (const auto& address : context.store.stories().linksOfHeadline(
             story.title, story.publishedAt, kSameHeadlineSpan)) {
        auto link = kit::articleLinkOf(address);
        if (link && suits(*link, story)) return link;
    }
    return std::nullopt;
}

/// The host of the publisher whose stories the source searches for; empty when it searches for
/// all.
std::string LinkResolver::publisherHost(const kit::Story& story) const {
    const auto* source = jobs_.updates().registry().find(story.sourceID);
    auto host = source ? kit::linkHost(source->siteURL) : std::string();
    return host == kit::hosts::kGoogleNews ? std::string() : host;
}

/// A source that searches for one publisher's stories has only links to that publisher.
bool LinkResolver::suits(std::string_view link, const kit::Story& story) const {
    const auto publisher = publisherHost(story);
    if (publisher.empty()) return true;
    const auto host = kit::linkHost(link);
    const auto* outlet = kit::outletOfHost(host);
    return (outlet && outlet == kit::outletOfHost(publisher)) ||
           kit::registeredDomain(host) == kit::registeredDomain(publisher);
}

void LinkResolver::store(WorkerContext& context, StoredStory story, const std::string& link) {
    auto transaction = context.store.transaction();
    const auto stamp = context.store.state().nextStamp();
    context.store.stories().setArticleLink(story.number, link, stamp);
    transaction.commit();
    story.story.articleLink = link;
    CommittedBatch batch{.stamp = stamp};
    batch.revised.push_back(std::move(story));
    jobs_.deliver(jobs_.updates().committed(std::move(batch)));
}

void LinkResolver::leaveAlone(WorkerContext& context, std::string storyID) {
    kit::log(kit::LogCategory::desk, kit::LogLevel::info,
             "the articles behind redirect links are left alone for an hour");
    waiting_.push_front(std::move(storyID));
    history(context).pause(clock_());
    saveHistory(context);
}

void LinkResolver::fail(WorkerContext& context, std::string storyID) {
    history(context).addFailure(std::move(storyID), clock_());
    saveHistory(context);
}

kit::LinkHistory& LinkResolver::history(WorkerContext& context) {
    if (history_) return *history_;
    history_.emplace();
    const auto text = context.store.state().text(kHistoryKey);
    if (!text) return *history_;
    try {
        history_ = kit::decode<kit::LinkHistory>(boost::json::parse(*text));
    } catch (const std::exception&) {
        // A later version may have written it; what it remembers is not worth a failure.
    }
    return *history_;
}

void LinkResolver::saveHistory(WorkerContext& context) {
    context.store.state().setText(kHistoryKey,
                                  boost::json::serialize(kit::encode(history(context))));
}

}  // namespace app
