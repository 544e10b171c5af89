#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace kit {

/// Which certificate authorities are trusted for which host.
class TrustedAuthorities {
public:
    using Files = std::map<std::string, std::filesystem::path, std::less<>>;

    /// `file` replaces the system's bundle; each of `extras` is trusted in addition, for one host.
    /// Throws std::runtime_error when a file cannot be read or no bundle is found.
    TrustedAuthorities(const std::optional<std::filesystem::path>& file, const Files& extras);

    const std::string& file() const { return file_; }

    /// The complete PEM bundle of a host with an extra authority; null for all others.
    const std::string* bundleFor(std::string_view host) const;

private:
    std::string file_;
    std::map<std::string, std::string, std::less<>> bundles_;  ///< by host in lower case
};

}  // namespace kit
