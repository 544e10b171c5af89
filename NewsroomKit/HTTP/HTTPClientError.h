#pragma once

#include <string>
#include <string_view>
#include <variant>

#include <boost/outcome/result.hpp>

namespace kit {

/// An answer that this client refuses.
struct HTTPClientError {
    enum class Kind {
        status,    ///< outside 200 to 299, and not 304
        notHTTPS,  ///< the address itself, or a redirect
        tooLarge,  ///< the body, or all headers together
        empty,
        notHTTP  ///< something answered that does not speak HTTP
    };

    Kind kind;
    int statusCode = 0;  ///< of `status` only

    bool operator==(const HTTPClientError&) const = default;
};

/// A failure of the network or the platform.
enum class URLError {
    badURL,
    timedOut,
    cannotFindHost,
    dnsLookupFailed,  ///< the lookup of something other than the host, such as a proxy
    cannotConnectToHost,
    notConnectedToInternet,
    networkConnectionLost,
    secureConnectionFailed,
    serverCertificateHasBadDate,  ///< it has expired
    serverCertificateNotYetValid,
    serverCertificateUntrusted,
    tooManyRedirects,
    redirectToPrivateAddress,
    cannotDecodeContent,
    badServerResponse,
    cancelled
};

std::string description(const HTTPClientError& error);
std::string_view description(URLError error);

/// Any failure of a fetch.
class FetchError {
public:
    FetchError(HTTPClientError error) : cause_(error) {}
    FetchError(URLError error) : cause_(error) {}

    /// The text shown to users.
    std::string description() const;

    /// True for failures that may be gone a second later.
    bool isRetryable() const;

    const std::variant<HTTPClientError, URLError>& cause() const { return cause_; }

    bool operator==(const FetchError&) const = default;

private:
    std::variant<HTTPClientError, URLError> cause_;
};

/// The value of a failure is undefined, so test it first.
template <class T>
using FetchResult = boost::outcome_v2::unchecked<T, FetchError>;

}  // namespace kit
