#include "PressRoom/Server/Server.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <fstream>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

#include <boost/asio/awaitable.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/detached.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/redirect_error.hpp>
#include <boost/asio/ssl.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/strand.hpp>
#include <boost/asio/this_coro.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http.hpp>
#include <fmt/format.h>

#include "PressRoom/Server/CertificateIssuer.h"

namespace pressroom {
namespace {

namespace asio = boost::asio;
namespace http = boost::beast::http;
using asio::use_awaitable;
using asio::ip::tcp;
using Stream = asio::ssl::stream<tcp::socket>;
using Framing = Delivery::Framing;

constexpr std::uint64_t largestRequestBody = 16 * 1024 * 1024;

std::string lowerCased(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    });
    return lower;
}

Request requestFrom(http::request<http::string_body>&& message) {
    Request request{.method = std::string(message.method_string()),
                    .target = std::string(message.target()),
                    .body = std::move(message.body())};
    for (const auto& field : message) {
        request.headers.emplace(lowerCased(field.name_string()), field.value());
    }
    const std::string_view host = request.header("host").value_or("");
    const auto portMark = host.find(':', host.find(']') == host.npos ? 0 : host.find(']'));
    request.host = lowerCased(host.substr(0, portMark));
    return request;
}

bool mayHaveBody(const Request& request, int status) {
    return request.method != "HEAD" && status >= 200 && status != 204 && status != 304;
}

bool endsWithConnection(const Response& response) {
    const auto& delivery = response.delivery;
    return delivery.framing == Framing::untilClose || delivery.closeAfter ||
           (delivery.announcedLength && *delivery.announcedLength != response.body.size());
}

std::string headOf(const Request& request, const Response& response, bool closes) {
    const auto reason =
        http::obsolete_reason(http::int_to_status(static_cast<unsigned>(response.status)));
    std::string head = fmt::format("HTTP/1.1 {} {}\r\n", response.status,
                                   std::string_view(reason.data(), reason.size()));
    for (const auto& [name, value] : response.headers) {
        head += fmt::format("{}: {}\r\n", name, value);
    }
    if (mayHaveBody(request, response.status)) {
        if (response.delivery.framing == Framing::chunked) {
            head += "Transfer-Encoding: chunked\r\n";
        } else if (response.delivery.framing == Framing::contentLength) {
            head += fmt::format("Content-Length: {}\r\n",
                                response.delivery.announcedLength.value_or(response.body.size()));
        }
    }
    if (closes) head += "Connection: close\r\n";
    return head + "\r\n";
}

asio::awaitable<void> pause(std::chrono::milliseconds duration) {
    asio::steady_timer timer(co_await asio::this_coro::executor, duration);
    co_await timer.async_wait(use_awaitable);
}

asio::awaitable<void> send(Stream& stream, std::string_view bytes) {
    co_await asio::async_write(stream, asio::buffer(bytes), use_awaitable);
}

asio::awaitable<void> sendPiece(Stream& stream, std::string_view piece, Framing framing) {
    if (framing != Framing::chunked) {
        co_await send(stream, piece);
    } else if (!piece.empty()) {  // an empty chunk would end the body
        const auto chunk = fmt::format("{:x}\r\n{}\r\n", piece.size(), piece);
        co_await send(stream, chunk);
    }
}

asio::awaitable<void> sendTrickle(Stream& stream, std::string_view body, Delivery delivery) {
    while (!body.empty()) {
        co_await sendPiece(stream, body.substr(0, delivery.trickleBytes), delivery.framing);
        body.remove_prefix(std::min(body.size(), delivery.trickleBytes));
        co_await pause(delivery.trickleInterval);
    }
}

/// Sends an ordinary answer in one write, so that a small one takes one packet.
asio::awaitable<void> sendAnswer(Stream& stream, const Request& request, const Response& response,
                                 bool closes) {
    const auto& delivery = response.delivery;
    std::string head = headOf(request, response, closes);
    std::string_view body = response.body;
    if (!mayHaveBody(request, response.status)) body = {};
    if (delivery.closeAfter) body = body.substr(0, *delivery.closeAfter);
    if (delivery.trickleBytes == 0 && delivery.framing != Framing::chunked) {
        co_await send(stream, head.append(body));
        co_return;
    }
    co_await send(stream, head);
    if (delivery.trickleBytes > 0) {
        co_await sendTrickle(stream, body, delivery);
    } else {
        co_await sendPiece(stream, body, delivery.framing);
    }
    const bool complete = !delivery.closeAfter && mayHaveBody(request, response.status);
    if (delivery.framing == Framing::chunked && complete) co_await send(stream, "0\r\n\r\n");
}

/// Ends only by an error, when the client hangs up.
asio::awaitable<void> staySilent(Stream& stream) {
    std::array<char, 1024> ignored{};
    for (;;) co_await stream.async_read_some(asio::buffer(ignored), use_awaitable);
}

/// Closes TLS properly, so that the client knows the end is intended.
asio::awaitable<void> sayGoodbye(Stream& stream) {
    boost::system::error_code ignored;
    co_await stream.async_shutdown(asio::redirect_error(use_awaitable, ignored));
}

}  // namespace

class Server::Impl {
public:
    Impl(Handler handler, Options options)
        : handler_(std::move(handler)),
          mint_(std::move(options.certificates)),
          address_(options.address),
          io_(std::make_unique<asio::io_context>()),
          tls_(asio::ssl::context::tls_server) {
        SSL_CTX_set_min_proto_version(tls_.native_handle(), TLS1_2_VERSION);
        SSL_CTX_set_tlsext_servername_callback(tls_.native_handle(), &Impl::chooseCertificate);
        SSL_CTX_set_tlsext_servername_arg(tls_.native_handle(), this);
        auto acceptor = listener(options.port);
        asio::co_spawn(*io_, accept(std::move(acceptor)), asio::detached);
        for (unsigned i = 0; i < std::max(1U, options.threads); ++i) {
            threads_.emplace_back([this] { io_->run(); });
        }
    }

    ~Impl() { stop(); }

    void stop() {
        if (!io_) return;
        io_->stop();
        threads_.clear();
        io_.reset();
    }

    void count(const Request& request) {
        const std::lock_guard lock(mutex_);
        ++hits_;
        ++hitsByHost_[request.host];
        ++hitsByAddress_[request.host + request.target];
    }

    std::size_t hitsOf(std::string_view host, std::string_view target) const {
        const std::lock_guard lock(mutex_);
        const auto found = hitsByAddress_.find(std::string(host) + std::string(target));
        return found == hitsByAddress_.end() ? 0 : found->second;
    }

    std::size_t hitsOf(std::string_view host) const {
        const std::lock_guard lock(mutex_);
        const auto found = hitsByHost_.find(host);
        return found == hitsByHost_.end() ? 0 : found->second;
    }

    std::size_t hits() const {
        const std::lock_guard lock(mutex_);
        return hits_;
    }

    std::uint16_t port() const { return port_; }
    std::size_t connections() const { return connections_; }
    const CertificateIssuer& mint() const { return mint_; }

private:
    tcp::acceptor listener(std::uint16_t port) {
        const auto loopback = asio::ip::make_address_v4(address_);
        if (!loopback.is_loopback()) throw std::invalid_argument("not a loopback address");
        tcp::acceptor acceptor(*io_, {loopback, port});
        port_ = acceptor.local_endpoint().port();
        return acceptor;
    }

    asio::awaitable<void> accept(tcp::acceptor acceptor) {
        for (;;) {
            boost::system::error_code failure;
            tcp::socket socket(asio::make_strand(*io_));
            co_await acceptor.async_accept(socket, asio::redirect_error(use_awaitable, failure));
            if (failure) {  // out of file descriptors: some will be freed
                co_await pause(std::chrono::milliseconds(10));
                continue;
            }
            ++connections_;
            const auto strand = socket.get_executor();
            asio::co_spawn(strand, serve(std::move(socket)), asio::detached);
        }
    }

    asio::awaitable<void> serve(tcp::socket socket) {
        try {
            socket.set_option(tcp::no_delay(true));
            Stream stream(std::move(socket), tls_);
            co_await stream.async_handshake(Stream::server, use_awaitable);
            boost::beast::flat_buffer buffer;
            while (co_await serveOne(stream, buffer)) {
            }
        } catch (const boost::system::system_error&) {
            // The client hung up or sent garbage; the stream closes its connection.
        }
    }

    /// False when the connection is over.
    asio::awaitable<bool> serveOne(Stream& stream, boost::beast::flat_buffer& buffer) {
        http::request_parser<http::string_body> parser;
        parser.body_limit(largestRequestBody);
        co_await http::async_read(stream, buffer, parser, use_awaitable);
        const bool closesAfter = !parser.get().keep_alive();
        const auto request = requestFrom(parser.release());
        count(request);

        const auto response = ask(request);
        const auto& delivery = response.delivery;
        if (delivery.neverAnswers) co_await staySilent(stream);
        if (delivery.delay.count() > 0) co_await pause(delivery.delay);
        if (delivery.hangsUp) co_return false;
        if (delivery.rawBytes) {
            co_await send(stream, *delivery.rawBytes);
            co_await sayGoodbye(stream);
            co_return false;
        }
        const bool closes = closesAfter || endsWithConnection(response);
        co_await sendAnswer(stream, request, response, closes);
        if (closes && !delivery.closeAfter) co_await sayGoodbye(stream);
        co_return !closes;
    }

    Response ask(const Request& request) const {
        try {
            return handler_(request);
        } catch (const std::exception& failure) {
            return {.status = 500, .body = failure.what()};
        }
    }

    static int chooseCertificate(SSL* ssl, int* alert, void* self) {
        const char* name = SSL_get_servername(ssl, TLSEXT_NAMETYPE_host_name);
        try {
            auto& server = *static_cast<Impl*>(self);
            // A client that connects to a bare address names no server.
            const auto asked = name == nullptr ? server.address_ : lowerCased(name);
            server.mint_.identify(ssl, asked);
            return SSL_TLSEXT_ERR_OK;
        } catch (const std::runtime_error&) {  // a name no certificate can hold
            *alert = SSL_AD_UNRECOGNIZED_NAME;
            return SSL_TLSEXT_ERR_ALERT_FATAL;
        }
    }

    const Handler handler_;
    CertificateIssuer mint_;
    const std::string address_;
    std::unique_ptr<asio::io_context> io_;
    asio::ssl::context tls_;
    std::uint16_t port_ = 0;
    std::atomic<std::size_t> connections_ = 0;
    mutable std::mutex mutex_;
    std::size_t hits_ = 0;
    std::map<std::string, std::size_t, std::less<>> hitsByHost_;
    std::map<std::string, std::size_t, std::less<>> hitsByAddress_;
    std::vector<std::jthread> threads_;
};

namespace {

void writeText(const std::filesystem::path& file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out << text;
    if (!out.flush()) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace

Server::Server(Handler handler) : Server(std::move(handler), Options{}) {}

Server::Server(Handler handler, Options options)
    : impl_(std::make_unique<Impl>(std::move(handler), std::move(options))) {}

Server::~Server() = default;

std::uint16_t Server::port() const { return impl_->port(); }

std::string Server::authorityPEM() const { return impl_->mint().authorityPEM(); }

std::string Server::privateAuthorityPEM() const { return impl_->mint().privateAuthorityPEM(); }

void Server::writeAuthority(const std::filesystem::path& file) const {
    writeText(file, authorityPEM());
}

void Server::writePrivateAuthority(const std::filesystem::path& file) const {
    writeText(file, privateAuthorityPEM());
}

std::size_t Server::hits(std::string_view host, std::string_view target) const {
    return impl_->hitsOf(host, target);
}

std::size_t Server::hits(std::string_view host) const { return impl_->hitsOf(host); }

std::size_t Server::hits() const { return impl_->hits(); }

std::size_t Server::connections() const { return impl_->connections(); }

void Server::stop() { impl_->stop(); }

}  // namespace pressroom
