#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace kit {

/// The validators of a server's last answer, for conditional requests.
struct Validators {
    std::optional<std::string> entityTag = {};
    std::optional<std::string> lastModified = {};

    bool operator==(const Validators&) const = default;
};

/// Without a value that is too long for a header, or would start another one: servers are not
/// trusted with it, nor is the file that it was stored in.
Validators sendable(Validators validators);

/// The validators of each address. Thread-safe.
class ValidatorTable {
public:
    using Entries = std::map<std::string, Validators, std::less<>>;

    Validators find(const std::string& url) const;

    /// Replaces the pair as a whole, so that a tag never outlives its date. What isn't sendable
    /// is left out.
    void store(const std::string& url, Validators validators);

    void forget(const std::string& url);

    Entries entries() const;

    /// Replaces all entries and leaves out the same values: the entries may come from a file that
    /// was edited elsewhere.
    void replace(Entries entries);

private:
    mutable std::mutex mutex_;
    Entries entries_;
};

}  // namespace kit
