#include "NewsroomKit/Filings/FilingsAPI.h"

#include <chrono>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Filings/FilingForms.h"
#include "NewsroomKit/Records/RecordError.h"

namespace kit {
namespace {

namespace asio = boost::asio;

constexpr int forbidden = 403;
constexpr int unauthorized = 401;
constexpr int tooManyRequests = 429;

// Ten requests a second are allowed for all programs of a network together.
constexpr std::chrono::seconds betweenRequests{1};
// After that the SEC answers again when the rate has stayed low.
constexpr std::chrono::minutes throttled{10};

FetchError statusError(int status) {
    return HTTPClientError{.kind = HTTPClientError::Kind::status, .statusCode = status};
}

// The coroutines own what they work with: the caller's object may be gone before they run.

asio::awaitable<FetchedBody> fetchedPage(HTTPClient& http, std::string contact,
                                         std::string address) {
    HTTPClient::Request request{.url = std::move(address),
                                .byteLimit = FilingsAPI::kByteLimit,
                                .userAgent = "TarnwickBrell/1.0 " + contact,
                                .readableStatus = forbidden,
                                .pace = betweenRequests};
    auto answer = co_await fetchBody(http, std::move(request));
    if (!answer.body) co_return answer;
    const auto refusal = refusalInPage(answer.body.value());
    if (refusal == FilingsError::undeclared) {
        answer.body = statusError(unauthorized);
    } else if (refusal == FilingsError::threshold) {
        answer.body = statusError(tooManyRequests);
        answer.record.retryAfter = throttled;
    } else if (answer.record.status == forbidden) {
        answer.body = statusError(forbidden);
    }
    co_return answer;
}

asio::awaitable<FetchedFile<std::vector<Filing>>> fetchedFeed(HTTPClient& http, std::string contact,
                                                              std::string address) {
    auto answer = co_await fetchedPage(http, std::move(contact), std::move(address));
    if (!answer.body) {
        co_return FetchedFile<std::vector<Filing>>{.value = answer.body.error(),
                                                   .retryAfter = answer.record.retryAfter};
    }
    auto body = std::move(answer.body).value();
    auto filings = FilingsAPI::parse(body);
    co_return FetchedFile<std::vector<Filing>>{.value = std::move(filings),
                                               .body = std::move(body)};
}

}  // namespace

std::string FilingsAPI::feedAddress(std::int64_t cik) {
    return fmt::format(
        "https://www.sec.gov/cgi-bin/browse-edgar?action=getcompany&CIK={:010}&type=&dateb="
        "&owner=include&start=0&count=40&output=atom",
        cik);
}

std::string FilingsAPI::listAddress(std::int64_t cik) {
    return fmt::format("https://data.sec.gov/submissions/CIK{:010}.json", cik);
}

std::string FilingsAPI::submissionAddress(std::int64_t cik, std::string_view accession) {
    return documentAddress(cik, accession, std::string(accession) + ".txt");
}

std::vector<Filing> FilingsAPI::parse(std::string_view body) {
    auto filings = parseFilings(body);
    if (!filings) throw RecordError("", std::string(description(filings.error())));
    return std::move(filings).value();
}

asio::awaitable<FetchedFile<std::vector<Filing>>> FilingsAPI::companyFeed(std::int64_t cik) const {
    return fetchedFeed(http, contact, feedAddress(cik));
}

asio::awaitable<FetchedFile<std::vector<Filing>>> FilingsAPI::companyList(std::int64_t cik) const {
    return fetchedFeed(http, contact, listAddress(cik));
}

asio::awaitable<FetchedBody> FilingsAPI::submission(std::int64_t cik,
                                                    std::string_view accession) const {
    return fetchedPage(http, contact, submissionAddress(cik, accession));
}

asio::awaitable<FetchedBody> FilingsAPI::document(std::string address) const {
    return fetchedPage(http, contact, std::move(address));
}

}  // namespace kit
