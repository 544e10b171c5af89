#pragma once

#include <exception>
#include <optional>
#include <utility>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>

#include "Tarnwick_Brell/Desk/FetchStack.h"

namespace cli {

/// Fetches on the calling thread; only commands that fetch create one.
class BlockingFetcher {
public:
    BlockingFetcher(kit::CurlTransport::Options network, kit::Conditional conditional);

    boost::asio::io_context& io() { return io_; }
    app::FetchStack& fetching() { return fetching_; }
    kit::HTTPClient& http() { return fetching_.http(); }
    kit::FeedClient& feeds() { return fetching_.feeds(); }

    /// Waits for the work and returns its result, or rethrows its exception.
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
    app::FetchStack fetching_;
};

}  // namespace cli
