#include "NewsroomKit/Backend/BackendAPI.h"

#include <utility>

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

}  // namespace

WatchedAnswer BackendAPI::parse(std::string_view body) {
    return decode<WatchedAnswer>(parseJSON(body));
}

boost::asio::awaitable<FetchedFile<WatchedAnswer>> BackendAPI::file(HTTPClient& http,
                                                                    const WatchedFile& file) {
    HTTPClient::Request request{.url = std::string(file.address), .byteLimit = kByteLimit};
    auto fetched = co_await fetchBody(http, std::move(request));
    if (!fetched.body) {
        co_return FetchedFile<WatchedAnswer>{.value = fetched.body.error(),
                                             .retryAfter = fetched.record.retryAfter};
    }
    auto answer = answerFrom(file, std::move(fetched.body).value());
    auto copy = json::serialize(encode(answer));
    co_return FetchedFile<WatchedAnswer>{.value = std::move(answer), .body = std::move(copy)};
}

}  // namespace kit
