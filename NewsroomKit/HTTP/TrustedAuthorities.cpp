#include "NewsroomKit/HTTP/TrustedAuthorities.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kit {
namespace {

constexpr std::array systemBundles{
    "/etc/ssl/certs/ca-certificates.crt",                 // Debian, Arch
    "/etc/pki/ca-trust/extracted/pem/tls-ca-bundle.pem",  // Fedora
    "/etc/ssl/ca-bundle.pem",                             // openSUSE
    "/etc/ssl/cert.pem",                                  // Alpine, BSD
};

std::string systemBundle() {
    for (const char* candidate : systemBundles) {
        std::error_code ignored;
        if (std::filesystem::is_regular_file(candidate, ignored)) return candidate;
    }
    throw std::runtime_error("This system has no bundle of certificate authorities.");
}

std::string textOf(const std::filesystem::path& file) {
    std::string text;
    std::error_code error;
    if (std::filesystem::is_regular_file(file, error)) {
        std::ifstream in(file, std::ios::binary);
        text.assign(std::istreambuf_iterator<char>(in), {});
    }
    if (text.find("BEGIN CERTIFICATE") == std::string::npos) {
        throw std::runtime_error("There is no certificate authority in " + file.string() + ".");
    }
    return text;
}

std::string lowerCased(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    });
    return lower;
}

}  // namespace

TrustedAuthorities::TrustedAuthorities(const std::optional<std::filesystem::path>& file,
                                       const Files& extras)
    : file_(file ? file->string() : systemBundle()) {
    const std::string common = textOf(file_);
    for (const auto& [host, extra] : extras) {
        bundles_.emplace(lowerCased(host), common + "\n" + textOf(extra));
    }
}

const std::string* TrustedAuthorities::bundleFor(std::string_view host) const {
    const auto found = bundles_.find(lowerCased(host));
    return found == bundles_.end() ? nullptr : &found->second;
}

}  // namespace kit
