#pragma once

#include <boost/asio/thread_pool.hpp>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Ingestion/StoryConversion.h"

namespace app {

/// Everything that fetching needs, wired together. The executors of those who wait for it
/// must outlive it.
class FetchStack {
public:
    /// Throws std::runtime_error when a named authority file cannot be read.
    FetchStack(kit::CurlTransport::Options network, kit::Conditional conditional, kit::Clock clock);

    kit::HTTPClient& http() { return http_; }
    kit::FeedClient& feeds() { return feeds_; }
    kit::Conditional conditional() const { return conditional_; }

private:
    boost::asio::thread_pool workers_;
    kit::CanonicalLinks links_;
    kit::StoryConversion conversion_;
    bool isPaced_;  ///< a press room is not spared
    kit::CurlTransport transport_;
    kit::HTTPClient http_;
    kit::FeedClient feeds_;
    kit::Conditional conditional_;
};

}  // namespace app
