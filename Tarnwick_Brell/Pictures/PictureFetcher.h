#pragma once

#include <functional>
#include <memory>
#include <string>

#include <boost/asio/io_context.hpp>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/HTTP/HTTPClientError.h"

namespace app {

/// Fetches the files of pictures over a transport of its own, so that pictures never hold up feeds.
/// Belongs to the thread of its context.
class PictureFetcher {
public:
    /// Called once.
    using Done = std::function<void(kit::FetchResult<std::string>)>;

    /// `io` must outlive it. Throws std::runtime_error when an authority file cannot be read.
    PictureFetcher(boost::asio::io_context& io, kit::CurlTransport::Options network);
    ~PictureFetcher();

    void fetch(std::string address, Done done);
    /// Those under way end as cancelled, soon.
    void cancelAll();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace app
