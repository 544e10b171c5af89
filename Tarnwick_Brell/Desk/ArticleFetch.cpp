#include "Tarnwick_Brell/Desk/ArticleFetch.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Ingestion/CreditExtraction.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

/// A refusal that the server's status tells is named as one.
std::string articleFailure(const kit::HTTPClient::Exchange& exchange) {
    const auto problem = kit::problemOf({.bytes = "<p>",
                                         .url = {},
                                         .contentType = {},
                                         .status = std::max(exchange.record.status, 200)});
    if (problem == kit::PageProblem::blocked) return std::string(kit::description(*problem));
    return exchange.result.error().description();
}

}  // namespace

boost::asio::awaitable<FetchedArticle> fetchArticle(kit::HTTPClient& http, std::string address) {
    kit::HTTPClient::Request request;
    request.url = address;
    request.byteLimit = kit::longestPage;
    request.namedBy = kit::NamedBy::publicPage;
    const auto exchange = co_await http.exchange(std::move(request));
    FetchedArticle fetched;
    if (!exchange.result) {
        fetched.failure = articleFailure(exchange);
        co_return fetched;
    }
    const auto* fresh = std::get_if<kit::HTTPClient::Fresh>(&exchange.result.value());
    auto article =
        kit::readArticle({.bytes = fresh ? std::string_view(fresh->body) : std::string_view(),
                          .url = address,
                          .contentType = exchange.headers.find("content-type").value_or("")});
    if (article) {
        fetched.article = std::move(article).value();
    } else {
        fetched.failure = kit::description(article.error());
    }
    co_return fetched;
}

std::vector<kit::SourceCredit> creditsIn(const kit::Article& article, const kit::Story& story,
                                         std::string_view siteURL) {
    return kit::extractCredits(kit::articleHTML(article), "",
                               siteURL.empty() ? std::string_view(story.link) : siteURL,
                               story.sourceName);
}

std::optional<CommittedBatch> storeArticle(LocalStore& store, const kit::Story& story,
                                           std::string_view siteURL, const kit::Article& article,
                                           kit::Instant now) {
    auto transaction = store.transaction();
    const auto& url = story.articleLink.value_or(story.link);
    store.articles().put(story.id, url, article, now);
    if (store.kept().record(KeptKind::story, story.id))
        store.savedStories().keepText(story.id, url, article, now);
    CommittedBatch batch{.stamp = store.state().nextStamp()};
    auto revised =
        store.stories().addCredits(story.id, creditsIn(article, story, siteURL), *batch.stamp);
    transaction.commit();
    if (!revised) return std::nullopt;
    batch.revised.push_back(std::move(*revised));
    return batch;
}

}  // namespace app
