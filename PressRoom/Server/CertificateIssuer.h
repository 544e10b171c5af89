#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include <openssl/ssl.h>

#include "PressRoom/Server/Server.h"

namespace pressroom {

struct OpenSSLDeleter {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(X509* certificate) const { X509_free(certificate); }
    void operator()(BIO* bio) const { BIO_free(bio); }
    void operator()(X509_EXTENSION* extension) const { X509_EXTENSION_free(extension); }
};

template <class T>
using OpenSSLPtr = std::unique_ptr<T, OpenSSLDeleter>;

/// A key and its certificate.
struct Identity {
    OpenSSLPtr<EVP_PKEY> key;
    OpenSSLPtr<X509> certificate;
};

/// Two authorities, created at start, and a certificate per server name, issued at first use.
class CertificateIssuer {
public:
    using Kinds = std::map<std::string, Server::Certificate, std::less<>>;

    explicit CertificateIssuer(Kinds kinds);

    /// Sets the connection's certificate to that of `serverName`. Thread-safe. Throws
    /// std::runtime_error for names that no certificate can hold.
    void identify(SSL* connection, std::string_view serverName);

    std::string authorityPEM() const;
    std::string privateAuthorityPEM() const;

private:
    X509* certificateFor(std::string_view serverName);
    OpenSSLPtr<X509> mint(const std::string& serverName) const;

    Kinds kinds_;
    Identity authority_;
    Identity privateAuthority_;
    /// Shared by all leaves, so that issuing costs only a signature.
    OpenSSLPtr<EVP_PKEY> leafKey_;
    std::mutex mutex_;
    std::map<std::string, OpenSSLPtr<X509>, std::less<>> certificates_;
};

}  // namespace pressroom
