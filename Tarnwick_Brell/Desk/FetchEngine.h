#pragma once

#include <boost/asio/thread_pool.hpp>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Ingestion/StoryConversion.h"

namespace desk {

/// Everything that fetching needs, wired together. The executors of those who wait for it
/// must outlive it.
class FetchEngine {
public:
    /// Throws std::runtime_error when a named authority file cannot be read.
    FetchEngine(newsroom::CurlTransport::Options network, newsroom::Conditional conditional,
                newsroom::FeedClient::Clock clock);

    newsroom::HTTPClient& http() { return http_; }
    newsroom::FeedClient& feeds() { return feeds_; }
    newsroom::Conditional conditional() const { return conditional_; }

private:
    boost::asio::thread_pool workers_;
    newsroom::CanonicalLinks links_;
    newsroom::StoryConversion conversion_;
    newsroom::CurlTransport transport_;
    newsroom::HTTPClient http_;
    newsroom::FeedClient feeds_;
    newsroom::Conditional conditional_;
};

}  // namespace desk
