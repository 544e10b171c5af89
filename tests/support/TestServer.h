#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/HTTP/HTTPClient.h"
#include "PressRoom/Server/ScriptedHandler.h"
#include "PressRoom/Server/Server.h"
#include "tests/support/TemporaryFolder.h"

namespace kit::test {

using ::test::TemporaryFolder;

/// Times short enough for tests.
HTTPClient::Configuration impatient();

HTTPClient::Exchange exchange(HTTPClient& client, HTTPClient::Request request);
HTTPClient::Exchange exchange(HTTPClient& client, std::string url,
                              Conditional conditional = Conditional::no,
                              std::size_t byteLimit = 1000);

/// "fresh: " and the body, "not modified", or the failure's description.
std::string outcomeText(const FetchResult<HTTPClient::Result>& result);

/// A scripted TLS server and a client that sends every connection to it.
class TestServer {
public:
    explicit TestServer(HTTPClient::Configuration configuration = impatient(),
                        pressroom::Server::Options options = {});

    HTTPClient::Exchange exchange(std::string url, Conditional conditional = Conditional::no,
                                  std::size_t byteLimit = 1000);
    std::string outcome(std::string url, Conditional conditional = Conditional::no,
                        std::size_t byteLimit = 1000);

    /// The certificate file of the server's authority.
    std::filesystem::path authorityFile() const { return folder_.path() / "authority.pem"; }

private:
    TemporaryFolder folder_;

public:
    pressroom::ScriptedHandler script;
    pressroom::Server server;
    CurlTransport transport;
    HTTPClient client;
};

}  // namespace kit::test
