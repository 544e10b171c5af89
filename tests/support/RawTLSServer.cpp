#include "tests/support/RawTLSServer.h"

#include <array>
#include <thread>
#include <utility>

#include <boost/asio/awaitable.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/detached.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/asio/write.hpp>

#include "PressRoom/Server/CertificateIssuer.h"

namespace test {
namespace {

namespace asio = boost::asio;
using asio::use_awaitable;
using asio::ip::tcp;
using Stream = asio::ssl::stream<tcp::socket>;

}  // namespace

class RawTLSServer::Impl {
public:
    explicit Impl(Script script) : script_(std::move(script)), mint_({}) {
        // A list of one: its length, then the name.
        offered_ = static_cast<char>(script_.protocol.size()) + script_.protocol;
        SSL_CTX_set_alpn_select_cb(tls_.native_handle(), &Impl::chooseProtocol, this);
        SSL_CTX_set_tlsext_servername_callback(tls_.native_handle(), &Impl::chooseCertificate);
        SSL_CTX_set_tlsext_servername_arg(tls_.native_handle(), this);
        asio::co_spawn(io_, accept(), asio::detached);
        thread_ = std::jthread([this] { io_.run(); });
    }

    ~Impl() { io_.stop(); }

    std::uint16_t port() const { return acceptor_.local_endpoint().port(); }
    std::string authorityPEM() const { return mint_.authorityPEM(); }

private:
    asio::awaitable<void> accept() {
        for (;;) {
            auto socket = co_await acceptor_.async_accept(use_awaitable);
            asio::co_spawn(io_, serve(std::move(socket)), asio::detached);
        }
    }

    asio::awaitable<void> serve(tcp::socket socket) {
        try {
            Stream stream(std::move(socket), tls_);
            co_await stream.async_handshake(Stream::server, use_awaitable);
            std::string received;
            std::array<char, 4096> piece{};
            while (received.find("\r\n\r\n") == std::string::npos) {
                const auto count =
                    co_await stream.async_read_some(asio::buffer(piece), use_awaitable);
                received.append(piece.data(), count);
            }
            co_await asio::async_write(stream, asio::buffer(script_.opening), use_awaitable);
            for (;;) {
                co_await asio::async_write(stream, asio::buffer(script_.endless), use_awaitable);
            }
        } catch (const boost::system::system_error&) {
            // The client has closed the connection.
        }
    }

    static int chooseProtocol(SSL*, const unsigned char** chosen, unsigned char* length,
                              const unsigned char* wanted, unsigned int wantedLength, void* self) {
        const auto& offered = static_cast<Impl*>(self)->offered_;
        unsigned char* found = nullptr;
        const int verdict = SSL_select_next_proto(
            &found, length, reinterpret_cast<const unsigned char*>(offered.data()),
            static_cast<unsigned>(offered.size()), wanted, wantedLength);
        *chosen = found;
        return verdict == OPENSSL_NPN_NEGOTIATED ? SSL_TLSEXT_ERR_OK : SSL_TLSEXT_ERR_ALERT_FATAL;
    }

    static int chooseCertificate(SSL* ssl, int*, void* self) {
        static_cast<Impl*>(self)->mint_.identify(ssl, "127.0.0.1");
        return SSL_TLSEXT_ERR_OK;
    }

    const Script script_;
    std::string offered_;
    pressroom::CertificateIssuer mint_;
    asio::io_context io_;
    asio::ssl::context tls_{asio::ssl::context::tls_server};
    tcp::acceptor acceptor_{io_, {asio::ip::address_v4::loopback(), 0}};
    std::jthread thread_;
};

RawTLSServer::RawTLSServer(Script script) : impl_(std::make_unique<Impl>(std::move(script))) {}

RawTLSServer::~RawTLSServer() = default;

std::uint16_t RawTLSServer::port() const { return impl_->port(); }

std::string RawTLSServer::authorityPEM() const { return impl_->authorityPEM(); }

}  // namespace test
