#pragma once

#include <exception>
#include <optional>
#include <utility>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>

#include "Tarnwick_Brell/Desk/FetchEngine.h"

namespace brell {

/// Fetching on the calling thread: made only by commands that fetch.
class Engine {
public:
    Engine(newsroom::CurlTransport::Options network, newsroom::Conditional conditional);

    boost::asio::io_context& io() { return io_; }
    desk::FetchEngine& fetching() { return fetching_; }
    newsroom::HTTPClient& http() { return fetching_.http(); }
    newsroom::FeedClient& feeds() { return fetching_.feeds(); }

    /// Waits for the work and gives its result, or throws what it threw.
    template <class T>
    T await(boost::asio::awaitable<T> work) {
        std::optional<T> result;
        std::exception_ptr failure;
        boost::asio::co_spawn(io_, std::move(work), [&](std::exception_ptr error, T value) {
            failure = error;
            if (!error) result = std::move(value);
            io_.stop();
        });
        io_.restart();
        io_.run();
        if (failure) std::rethrow_exception(failure);
        return std::move(*result);
    }

private:
    boost::asio::io_context io_;
    desk::FetchEngine fetching_;
};

}  // namespace brell
