#include "NewsroomKit/HTTP/HTTPClientError.h"

#include <cstdlib>

#include <fmt/format.h>

namespace kit {
namespace {

bool isRetryable(const HTTPClientError& error) {
    const int code = error.statusCode;
    return error.kind == HTTPClientError::Kind::status &&
           (code == 408 || code == 429 || (code >= 500 && code <= 599));
}

bool isRetryable(URLError error) {
    return error == URLError::timedOut || error == URLError::cannotConnectToHost ||
           error == URLError::networkConnectionLost || error == URLError::dnsLookupFailed ||
           error == URLError::cannotFindHost;
}

}  // namespace

std::string description(const HTTPClientError& error) {
    switch (error.kind) {
        case HTTPClientError::Kind::status:
            return fmt::format("The server answered {}.", error.statusCode);
        case HTTPClientError::Kind::notHTTPS: return "The address isn't secure (https).";
        case HTTPClientError::Kind::tooLarge:
            return "The response was larger than the safety limit.";
        case HTTPClientError::Kind::empty: return "The server sent nothing.";
        case HTTPClientError::Kind::notHTTP: return "The server didn't answer with HTTP.";
    }
    std::abort();
}

std::string_view description(URLError error) {
    switch (error) {
        case URLError::badURL: return "The address can't be read.";
        case URLError::timedOut: return "The server took too long to answer.";
        case URLError::cannotFindHost: return "The server's name can't be found.";
        case URLError::dnsLookupFailed: return "The name lookup failed.";
        case URLError::cannotConnectToHost: return "The server can't be reached.";
        case URLError::notConnectedToInternet: return "This computer is offline.";
        case URLError::networkConnectionLost: return "The connection was lost.";
        case URLError::secureConnectionFailed:
            return "A secure connection couldn't be established.";
        case URLError::serverCertificateHasBadDate:
            return "The server's certificate has expired. Is this computer's clock right?";
        case URLError::serverCertificateNotYetValid:
            return "The server's certificate isn't valid yet. Is this computer's clock right?";
        case URLError::serverCertificateUntrusted: return "The server's certificate isn't trusted.";
        case URLError::tooManyRedirects: return "The server redirected too many times.";
        case URLError::redirectToPrivateAddress:
            return "The server redirected to a private network address.";
        case URLError::cannotDecodeContent: return "The server's answer can't be decoded.";
        case URLError::badServerResponse: return "The server's answer is invalid.";
        case URLError::cancelled: return "Cancelled";
    }
    std::abort();
}

std::string FetchError::description() const {
    return std::visit([](const auto& error) { return std::string(kit::description(error)); },
                      cause_);
}

bool FetchError::isRetryable() const {
    return std::visit([](const auto& error) { return kit::isRetryable(error); }, cause_);
}

}  // namespace kit
