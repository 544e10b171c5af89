#include "tests/support/TestServer.h"

#include <exception>
#include <optional>
#include <utility>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>

namespace kit::test {
namespace {

namespace asio = boost::asio;

asio::awaitable<void> exchangeInto(std::optional<HTTPClient::Exchange>& place, HTTPClient& client,
                                   HTTPClient::Request request) {
    place = co_await client.exchange(std::move(request));
}

CurlTransport::Options trusting(const pressroom::Server& server,
                                const std::filesystem::path& authority) {
    server.writeAuthority(authority);
    return {.connectTo = "127.0.0.1:" + std::to_string(server.port()), .caFile = authority};
}

}  // namespace

HTTPClient::Configuration impatient() {
    return {.requestTimeout = std::chrono::seconds(10),
            .resourceTimeout = std::chrono::seconds(20),
            .retryPause = std::chrono::milliseconds(5),
            .retryJitter = std::chrono::milliseconds(5)};
}

HTTPClient::Exchange exchange(HTTPClient& client, HTTPClient::Request request) {
    asio::io_context io;
    std::optional<HTTPClient::Exchange> done;
    asio::co_spawn(io, exchangeInto(done, client, std::move(request)),
                   [](std::exception_ptr failure) {
                       if (failure) std::rethrow_exception(failure);
                   });
    io.run();
    return std::move(done).value();
}

HTTPClient::Exchange exchange(HTTPClient& client, std::string url, Conditional conditional,
                              std::size_t byteLimit) {
    return exchange(client,
                    HTTPClient::Request{
                        .url = std::move(url), .conditional = conditional, .byteLimit = byteLimit});
}

std::string outcomeText(const FetchResult<HTTPClient::Result>& result) {
    if (result.has_error()) return result.error().description();
    const auto* fresh = std::get_if<HTTPClient::Fresh>(&result.value());
    return fresh == nullptr ? "not modified" : "fresh: " + fresh->body;
}

TestServer::TestServer(HTTPClient::Configuration configuration, pressroom::Server::Options options)
    : server(script.handler(), std::move(options)),
      transport(trusting(server, authorityFile())),
      client(transport, std::move(configuration)) {}

HTTPClient::Exchange TestServer::exchange(std::string url, Conditional conditional,
                                          std::size_t byteLimit) {
    return test::exchange(client, std::move(url), conditional, byteLimit);
}

std::string TestServer::outcome(std::string url, Conditional conditional, std::size_t byteLimit) {
    return outcomeText(exchange(std::move(url), conditional, byteLimit).result);
}

}  // namespace kit::test
