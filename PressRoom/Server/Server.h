#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "PressRoom/Server/Message.h"

namespace pressroom {

/// A loopback HTTPS server that answers for every requested host name. The certificate of a name is
/// issued at its first use, by an authority created at start.
///
///     Server server(handler);
///     server.writeAuthority(dir / "authority.pem");
///     // trust authority.pem, connect every host to 127.0.0.1:server.port()
class Server {
public:
    /// The kind of certificate of a host.
    enum class Certificate {
        trusted,           ///< signed by the authority
        privateAuthority,  ///< signed by a second authority, for its hosts only
        expired,           ///< signed by the authority, expired yesterday
        notYetValid,       ///< signed by the authority, valid from tomorrow
        selfSigned,
        wrongName  ///< signed by the authority for another host
    };

    struct Options {
        std::uint16_t port = 0;             ///< 0: any free port
        std::string address = "127.0.0.1";  ///< any of 127.0.0.0/8
        unsigned threads = 1;
        /// Hosts that are not listed are `trusted`.
        std::map<std::string, Certificate, std::less<>> certificates = {};
    };

    /// Listens when the constructor returns; throws std::runtime_error when the
    /// port is taken.
    explicit Server(Handler handler);
    Server(Handler handler, Options options);
    ~Server();  ///< stops
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    std::uint16_t port() const;

    std::string authorityPEM() const;
    std::string privateAuthorityPEM() const;
    void writeAuthority(const std::filesystem::path& file) const;
    void writePrivateAuthority(const std::filesystem::path& file) const;

    /// Requests read so far: of one address, of one host, of all. Counted before the handler runs.
    std::size_t hits(std::string_view host, std::string_view target) const;
    std::size_t hits(std::string_view host) const;
    std::size_t hits() const;

    /// TCP connections accepted so far, with or without a request.
    std::size_t connections() const;

    /// Closes every connection and ends the threads without waiting for requests. Idempotent.
    void stop();

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace pressroom
