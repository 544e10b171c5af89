#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace kit {

/// What a server named its last answer by, to ask later whether it still holds.
struct Validators {
    std::optional<std::string> entityTag = {};
    std::optional<std::string> lastModified = {};

    bool operator==(const Validators&) const = default;
};

/// The validators of each address. One task at a time touches the table.
class ValidatorTable {
public:
    using Entries = std::map<std::string, Validators, std::less<>>;

    Validators find(const std::string& url) const;

    /// Replaces the pair as a whole: a tag never outlives the date it came with. A text that is
    /// too long for a header, or would add another one, is left out.
    void store(const std::string& url, Validators validators);

    void forget(const std::string& url);

    Entries entries() const;

    /// Takes the place of all entries, with the same texts left out: the entries may come from a
    /// file that something else has edited.
    void replace(Entries entries);

private:
    mutable std::mutex mutex_;
    Entries entries_;
};

}  // namespace kit
