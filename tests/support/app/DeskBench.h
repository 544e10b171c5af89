#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/HTTPBench.h"

namespace desk::test {

/// A server by script, a library on disk, and a clock that a test sets.
class DeskBench {
public:
    /// The library has only these sources switched on: custom ones, each with its feed at
    /// https://HOST/feed.
    explicit DeskBench(const std::vector<std::string>& hosts);

    std::filesystem::path library() const { return folder.path() / "library.sqlite"; }
    newsroom::CurlTransport::Options network() const;
    newsroom::FeedClient::Clock clock();
    newsroom::Instant now() const { return now_; }
    void pass(newsroom::Instant::duration time) { now_ = now_.load() + time; }

    void serve(const std::string& host, std::vector<pressroom::Response> answers);
    /// Stories "HOST N" for each N, published an hour apart before the clock's first moment.
    static pressroom::Response feed(const std::string& host, int first, int last);
    /// The answer of a server whose clock shows that moment.
    static pressroom::Response dated(pressroom::Response response, newsroom::Instant moment);
    std::size_t requestsOf(const std::string& host) const;
    bool lastRequestWasConditional(const std::string& host) const;

    static newsroom::NewsSource source(const std::string& host);

    ::test::TemporaryFolder folder;
    newsroom::test::HTTPBench http;

private:
    std::atomic<newsroom::Instant> now_{newsroom::parseISO8601("2026-11-20T12:00:00Z").value()};
};

}  // namespace desk::test
