#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace test {

/// A loopback TLS server that sends bytes of a test's choice, whether they are HTTP or not.
class RawTLSServer {
public:
    struct Script {
        std::string protocol = "http/1.1";  ///< the only protocol of the handshake
        std::string opening = {};           ///< sent once a request has arrived
        std::string endless = {};           ///< sent next, over and over
    };

    explicit RawTLSServer(Script script);
    ~RawTLSServer();  ///< ends all connections
    RawTLSServer(const RawTLSServer&) = delete;
    RawTLSServer& operator=(const RawTLSServer&) = delete;

    std::uint16_t port() const;
    std::string url() const { return "https://127.0.0.1:" + std::to_string(port()) + "/"; }
    std::string authorityPEM() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace test
