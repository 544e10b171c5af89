#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/thread_pool.hpp>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Ingestion/StoryConversion.h"

namespace brell {

/// Everything that fetching needs, wired together: made only by commands that fetch.
class Engine {
public:
    Engine(newsroom::CurlTransport::Options network, newsroom::Conditional conditional);

    boost::asio::io_context& io() { return io_; }
    newsroom::HTTPClient& http() { return http_; }
    newsroom::FeedClient& feeds() { return feeds_; }

private:
    boost::asio::io_context io_;
    boost::asio::thread_pool workers_;
    newsroom::CanonicalLinks links_;
    newsroom::StoryConversion conversion_;
    newsroom::CurlTransport transport_;
    newsroom::HTTPClient http_;
    newsroom::FeedClient feeds_;
};

}  // namespace brell
