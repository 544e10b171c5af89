#include "NewsroomKit/Court/DocketAPI.h"

#include <charconv>
#include <chrono>
#include <optional>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Court/DocketForms.h"
#include "NewsroomKit/Court/DocketParser.h"
#include "NewsroomKit/Records/Codec.h"

namespace kit {
namespace {

constexpr int kTooManyRequests = 429;

/// The seconds in "Request was throttled. Expected available in 34 seconds."
std::optional<std::chrono::seconds> secondsInWords(std::string_view body) {
    constexpr std::string_view mark = "available in ";
    const auto at = body.find(mark);
    if (at == std::string_view::npos) return std::nullopt;
    const auto digits = body.substr(at + mark.size(), 9);
    std::int64_t seconds = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), seconds);
    return error == std::errc() && seconds > 0 ? std::optional(std::chrono::seconds(seconds))
                                               : std::nullopt;
}

boost::asio::awaitable<FetchedBody> searchPage(HTTPClient& http, std::string authorization,
                                               std::string address) {
    HTTPClient::Request request{.url = std::move(address),
                                .authorization = std::move(authorization),
                                .byteLimit = DocketAPI::kByteLimit,
                                .readableStatus = kTooManyRequests};
    auto answer = co_await fetchBody(http, std::move(request));
    if (answer.body && answer.record.status == kTooManyRequests) {
        if (const auto wanted = secondsInWords(answer.body.value()))
            answer.record.retryAfter = wanted;
        answer.body = FetchError(
            HTTPClientError{.kind = HTTPClientError::Kind::status, .statusCode = kTooManyRequests});
    }
    co_return answer;
}

/// The address of the next page of results, if that is CourtListener's.
std::optional<std::string> nextPage(const json::value& page) {
    const auto* const object = page.if_object();
    const auto* const next = object == nullptr ? nullptr : object->if_contains("next");
    if (next == nullptr || !next->is_string()) return std::nullopt;
    std::string address(next->get_string());
    const bool isOurs = address.starts_with(fmt::format("{}/", courtListenerSite));
    return isOurs ? std::optional(std::move(address)) : std::nullopt;
}

json::array* resultsOf(json::value& page) {
    auto* const object = page.if_object();
    auto* const results = object == nullptr ? nullptr : object->if_contains("results");
    return results == nullptr ? nullptr : results->if_array();
}

/// Adds the results of the second page to those of the first, if there is one and it can be had.
boost::asio::awaitable<std::string> withNextPage(HTTPClient& http, std::string authorization,
                                                 std::string body) {
    auto first = parseJSON(body);
    const auto next = nextPage(first);
    if (!next) co_return body;
    auto answer = co_await searchPage(http, std::move(authorization), *next);
    if (!answer.body) co_return body;
    auto second = parseJSON(answer.body.value());
    auto* const results = resultsOf(first);
    auto* const further = resultsOf(second);
    if (results == nullptr || further == nullptr) co_return body;
    results->insert(results->end(), further->begin(), further->end());
    co_return json::serialize(first);
}

boost::asio::awaitable<FetchedFile<DocketSheet>> searchedSheet(HTTPClient& http,
                                                               std::string authorization) {
    auto answer = co_await searchPage(http, authorization, DocketAPI::searchAddress());
    if (!answer.body) {
        co_return FetchedFile<DocketSheet>{.value = answer.body.error(),
                                           .retryAfter = answer.record.retryAfter};
    }
    auto body =
        co_await withNextPage(http, std::move(authorization), std::move(answer).body.value());
    auto sheet = DocketAPI::parse(body);
    co_return FetchedFile<DocketSheet>{.value = std::move(sheet), .body = std::move(body)};
}

}  // namespace

std::string DocketAPI::feedAddress(std::int64_t docket) { return docketAddress(docket) + "feed/"; }

std::string DocketAPI::docketAddress(std::int64_t docket) {
    return fmt::format("{}/docket/{}/", courtListenerSite, docket);
}

std::string DocketAPI::searchAddress() {
    return fmt::format(
        "{}/api/rest/v4/search/?type=r&q=party_name%3A%22Apple+Inc%22&order_by=dateFiled+desc",
        courtListenerSite);
}

DocketSheet DocketAPI::parse(std::string_view body) {
    auto parsed = parseDocket(body);
    if (!parsed) throw RecordError("", std::string(description(parsed.error())));
    return std::move(parsed).value();
}

boost::asio::awaitable<FetchedFile<DocketSheet>> DocketAPI::sheet(std::string address) const {
    return fetchFile(http, std::move(address), kByteLimit, parse);
}

boost::asio::awaitable<FetchedFile<DocketSheet>> DocketAPI::search(std::string token) const {
    return searchedSheet(http, fmt::format("Token {}", token));
}

}  // namespace kit
