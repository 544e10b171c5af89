#include "Tarnwick_Brell/Pictures/PictureFetcher.h"

#include <exception>
#include <list>
#include <utility>
#include <variant>

#include <boost/asio/bind_cancellation_slot.hpp>
#include <boost/asio/cancellation_signal.hpp>
#include <boost/asio/co_spawn.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Pictures/Picture.h"

namespace app {

namespace asio = boost::asio;

using Body = kit::FetchResult<std::string>;

struct PictureFetcher::Impl {
    Impl(asio::io_context& context, kit::CurlTransport::Options network)
        : io(context), transport(std::move(network)), http(transport) {}

    asio::awaitable<void> fetchInto(std::shared_ptr<Body> body, std::string address);

    asio::io_context& io;
    std::list<asio::cancellation_signal> underWay;
    kit::CurlTransport transport;
    kit::HTTPClient http;
};

asio::awaitable<void> PictureFetcher::Impl::fetchInto(std::shared_ptr<Body> body,
                                                      std::string address) {
    // Named, since GCC 12 copies temporaries of such calls byte by byte.
    kit::HTTPClient::Request request{.url = std::move(address),
                                     .byteLimit = kit::kPictureByteLimit,
                                     // A story must not make the desk ask this network.
                                     .namedBy = kit::NamedBy::publicPage};
    auto exchange = co_await http.exchange(std::move(request));
    if (!exchange.result) {
        *body = exchange.result.error();
    } else if (auto* fresh = std::get_if<kit::HTTPClient::Fresh>(&exchange.result.value())) {
        *body = std::move(fresh->body);
    }
}

PictureFetcher::PictureFetcher(asio::io_context& io, kit::CurlTransport::Options network)
    : impl_(std::make_unique<Impl>(io, std::move(network))) {}

PictureFetcher::~PictureFetcher() = default;

void PictureFetcher::fetch(std::string address, Done done) {
    auto& underWay = impl_->underWay;
    const auto signal = underWay.emplace(underWay.end());
    const auto body = std::make_shared<Body>(kit::FetchError(kit::URLError::cancelled));
    asio::co_spawn(impl_->io, impl_->fetchInto(body, std::move(address)),
                   asio::bind_cancellation_slot(
                       signal->slot(), [&underWay, signal, body,
                                        done = std::move(done)](const std::exception_ptr&) {
                           // Only being cancelled throws.
                           underWay.erase(signal);
                           done(std::move(*body));
                       }));
}

void PictureFetcher::cancelAll() {
    // A coroutine that ends at once takes its signal out of the list.
    for (auto signal = impl_->underWay.begin(); signal != impl_->underWay.end();)
        (signal++)->emit(asio::cancellation_type::terminal);
}

}  // namespace app
