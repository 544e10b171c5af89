#include "NewsroomKit/Backend/BackendAPI.h"

#include <utility>
#include <variant>

#include <fmt/format.h>

namespace kit {
namespace {

WatchedAnswer answerFrom(const WatchedFile& file, std::string body) {
    auto records = readWatchedRecords(file.source, body);
    if (!records) throw RecordError("", fmt::format("it isn't {}", label(file.source)));
    WatchedAnswer answer{.entries = static_cast<std::int64_t>(records->size()),
                         .bytes = static_cast<std::int64_t>(body.size())};
    answer.records = std::make_shared<const std::vector<WatchedRecord>>(std::move(*records));
    answer.body = std::make_shared<const std::string>(std::move(body));
    return answer;
}

Validators validatorsIn(const ResponseHeaders& headers) {
    Validators validators;
    if (const auto tag = headers.find("etag")) validators.entityTag = *tag;
    if (const auto date = headers.find("last-modified")) validators.lastModified = *date;
    return validators;
}

}  // namespace

WatchedAnswer BackendAPI::parse(std::string_view body) {
    return decode<WatchedAnswer>(parseJSON(body));
}

boost::asio::awaitable<FetchedFile<WatchedAnswer>> BackendAPI::file(HTTPClient& http,
                                                                    const WatchedFile& file,
                                                                    Validators known) {
    using Kind = HTTPClientError::Kind;
    HTTPClient::Request request{
        .url = std::string(file.address), .validators = known, .byteLimit = kByteLimit};
    auto exchange = co_await http.exchange(std::move(request));
    if (!exchange.result) {
        co_return FetchedFile<WatchedAnswer>{.value = exchange.result.error(),
                                             .retryAfter = exchange.record.retryAfter};
    }
    auto* fresh = std::get_if<HTTPClient::Fresh>(&exchange.result.value());
    if (!fresh && known == Validators{})
        co_return FetchedFile<WatchedAnswer>{.value =
                                                 FetchError(HTTPClientError{.kind = Kind::empty})};
    if (!fresh) co_return FetchedFile<WatchedAnswer>{.value = WatchedAnswer(), .isUnchanged = true};
    auto answer = answerFrom(file, std::move(fresh->body));
    answer.validators = validatorsIn(exchange.headers);
    auto copy = json::serialize(encode(answer));
    co_return FetchedFile<WatchedAnswer>{.value = std::move(answer), .body = std::move(copy)};
}

}  // namespace kit
