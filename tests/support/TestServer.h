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

/// A real TLS server by script and a client whose every connection goes there.
class TestServer {
public:
    explicit TestServer(HTTPClient::Configuration configuration = impatient(),
                        pressroom::Server::Options options = {});

    HTTPClient::Exchange exchange(std::string url, Conditional conditional = Conditional::no,
                                  std::size_t byteLimit = 1000);
    std::string outcome(std::string url, Conditional conditional = Conditional::no,
                        std::size_t byteLimit = 1000);

    /// Where the authority of the server is written.
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
