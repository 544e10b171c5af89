#include "PressRoom/Server/CertificateIssuer.h"

#include <stdexcept>

#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

namespace pressroom {
namespace {

constexpr long day = 24L * 60 * 60;

void require(bool succeeded, const char* what) {
    if (!succeeded) throw std::runtime_error(std::string("OpenSSL could not ") + what);
}

OpenSSLPtr<EVP_PKEY> makeKey() {
    OpenSSLPtr<EVP_PKEY> key(EVP_EC_gen("P-256"));
    require(key != nullptr, "make a key");
    return key;
}

void addExtension(X509* certificate, X509* issuer, int kind, const std::string& value) {
    X509V3_CTX context;
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    const OpenSSLPtr<X509_EXTENSION> extension(
        X509V3_EXT_conf_nid(nullptr, &context, kind, value.c_str()));
    require(extension && X509_add_ext(certificate, extension.get(), -1) == 1,
            "extend a certificate");
}

void setRandomSerial(X509* certificate) {
    std::uint64_t serial = 0;
    require(RAND_bytes(reinterpret_cast<unsigned char*>(&serial), sizeof serial) == 1,
            "draw a serial number");
    ASN1_INTEGER_set_uint64(X509_get_serialNumber(certificate), serial >> 1);
}

/// In seconds from now. It begins a week ago to allow for wrong clocks.
struct Validity {
    long begin = -7 * day;
    long end = 90 * day;
};

OpenSSLPtr<X509> draftCertificate(EVP_PKEY* key, const std::string& commonName, Validity validity) {
    OpenSSLPtr<X509> certificate(X509_new());
    require(certificate != nullptr, "make a certificate");
    X509_set_version(certificate.get(), X509_VERSION_3);
    setRandomSerial(certificate.get());
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), validity.begin);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), validity.end);
    X509_set_pubkey(certificate.get(), key);
    // A common name holds 64 characters at most; the alternative name carries longer hosts.
    const std::string shortName = commonName.substr(0, 64);
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate.get()), "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char*>(shortName.c_str()), -1, -1,
                               0);
    return certificate;
}

Identity makeAuthority(const std::string& name) {
    Identity authority{.key = makeKey(), .certificate = nullptr};
    authority.certificate = draftCertificate(authority.key.get(), name, {.end = 365 * day});
    X509* certificate = authority.certificate.get();
    X509_set_issuer_name(certificate, X509_get_subject_name(certificate));
    addExtension(certificate, certificate, NID_basic_constraints, "critical,CA:TRUE");
    addExtension(certificate, certificate, NID_key_usage, "critical,keyCertSign,cRLSign");
    addExtension(certificate, certificate, NID_subject_key_identifier, "hash");
    require(X509_sign(certificate, authority.key.get(), EVP_sha256()) != 0, "sign an authority");
    return authority;
}

bool isAddress(const std::string& name) {
    return name.find_first_not_of("0123456789.") == std::string::npos ||
           name.find(':') != std::string::npos;
}

std::string pemText(X509* certificate) {
    const OpenSSLPtr<BIO> memory(BIO_new(BIO_s_mem()));
    require(memory && PEM_write_bio_X509(memory.get(), certificate) == 1, "write a certificate");
    char* text = nullptr;
    const long length = BIO_get_mem_data(memory.get(), &text);
    return {text, static_cast<std::size_t>(length)};
}

}  // namespace

CertificateIssuer::CertificateIssuer(Kinds kinds)
    : kinds_(std::move(kinds)),
      authority_(makeAuthority("Press room authority")),
      privateAuthority_(makeAuthority("Press room private authority")),
      leafKey_(makeKey()) {}

void CertificateIssuer::identify(SSL* connection, std::string_view serverName) {
    // A TLS context per name would cost more than the rest of a handshake.
    require(SSL_use_certificate(connection, certificateFor(serverName)) == 1 &&
                SSL_use_PrivateKey(connection, leafKey_.get()) == 1,
            "use a certificate");
}

X509* CertificateIssuer::certificateFor(std::string_view serverName) {
    const std::lock_guard lock(mutex_);
    const auto known = certificates_.find(serverName);
    if (known != certificates_.end()) return known->second.get();
    const std::string name(serverName);
    return certificates_.emplace(name, mint(name)).first->second.get();
}

std::string CertificateIssuer::authorityPEM() const {
    return pemText(authority_.certificate.get());
}

std::string CertificateIssuer::privateAuthorityPEM() const {
    return pemText(privateAuthority_.certificate.get());
}

OpenSSLPtr<X509> CertificateIssuer::mint(const std::string& serverName) const {
    using Certificate = Server::Certificate;
    const auto listed = kinds_.find(serverName);
    const auto kind = listed == kinds_.end() ? Certificate::trusted : listed->second;
    const std::string name = kind == Certificate::wrongName ? "elsewhere.example" : serverName;
    Validity validity;
    if (kind == Certificate::expired) validity.end = -day;
    if (kind == Certificate::notYetValid) validity.begin = day;
    auto leaf = draftCertificate(leafKey_.get(), name, validity);

    const Identity& signer = kind == Certificate::privateAuthority ? privateAuthority_ : authority_;
    const bool selfSigned = kind == Certificate::selfSigned;
    X509* issuer = selfSigned ? leaf.get() : signer.certificate.get();
    EVP_PKEY* issuerKey = selfSigned ? leafKey_.get() : signer.key.get();
    X509_set_issuer_name(leaf.get(), X509_get_subject_name(issuer));
    addExtension(leaf.get(), issuer, NID_basic_constraints, "critical,CA:FALSE");
    addExtension(leaf.get(), issuer, NID_ext_key_usage, "serverAuth");
    // Distinguishes authorities of the same name from different servers.
    if (!selfSigned) addExtension(leaf.get(), issuer, NID_authority_key_identifier, "keyid");
    addExtension(leaf.get(), issuer, NID_subject_alt_name,
                 (isAddress(name) ? "IP:" : "DNS:") + name);
    require(X509_sign(leaf.get(), issuerKey, EVP_sha256()) != 0, "sign a certificate");
    return leaf;
}

}  // namespace pressroom
