#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace test {

/// A loopback TLS server that sends bytes of a test's choice, whether they are HTTP or not.
class RawTLSServer {
public:
    struct Script {
        std::string protocol = "http/1.1";  ///< or "h2"; agreed in the handshake
        std::string opening = {};           ///< sent once a request has come
        std::string endless = {};           ///< sent next, over and over
        std::chrono::milliseconds pause{0};  ///< before each time
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

/// A frame of HTTP/2.
std::string http2Frame(unsigned char type, unsigned char flags, unsigned char stream,
                       const std::string& content = {});

}  // namespace test
