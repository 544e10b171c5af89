#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/TestServer.h"

namespace app::test {

/// A scripted server, a library on disk, and a clock that a test sets.
class TestDesk {
public:
    /// Only these custom sources are enabled, each with its feed at https://HOST/feed.
    explicit TestDesk(const std::vector<std::string>& hosts);

    std::filesystem::path library() const { return folder.path() / "library.sqlite"; }
    kit::CurlTransport::Options network() const;
    kit::Clock clock();
    kit::Instant now() const { return now_; }
    void pass(kit::Instant::duration time) { now_ = now_.load() + time; }

    void serve(const std::string& host, std::vector<pressroom::Response> answers);
    /// Stories "HOST N" for each N, published an hour apart before the clock's first moment.
    static pressroom::Response feed(const std::string& host, int first, int last);
    /// The answer of a server whose clock shows that moment.
    static pressroom::Response dated(pressroom::Response response, kit::Instant moment);
    std::size_t requestsOf(const std::string& host) const;
    bool lastRequestWasConditional(const std::string& host) const;

    static kit::NewsSource source(const std::string& host);

    ::test::TemporaryFolder folder;
    kit::test::TestServer http;

private:
    std::atomic<kit::Instant> now_{kit::parseISO8601("2026-11-20T12:00:00Z").value()};
};

}  // namespace app::test
