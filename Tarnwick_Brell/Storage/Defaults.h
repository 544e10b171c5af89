#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

class QSettings;

namespace desk {

/// One key of the settings: what it means and what holds when it is absent.
struct SettingKey {
    enum class Type { wholeNumber, file };

    std::string_view name;
    std::string_view meaning;
    std::string_view absent;  ///< the value that holds when the key is absent
    Type type;
};

/// The user's settings: a key-value file. Reading never fails: a value that makes no sense
/// counts as its key's rule says. Writing throws StoreError.
class Defaults {
public:
    explicit Defaults(const std::filesystem::path& file);
    ~Defaults();

    static std::span<const SettingKey> keys();
    /// Null when there is no such key.
    static const SettingKey* key(std::string_view name);

    /// As stored; nothing when absent.
    std::optional<std::string> text(std::string_view key) const;
    /// Throws std::invalid_argument with a sentence for the user when the value does not
    /// suit the key. The empty text removes the key.
    void set(std::string_view key, std::string_view value);

    /// Reads what other programs may have written.
    void reload();

    /// Minutes between two automatic passes: 5 when absent or 0, otherwise at least 2.
    int refreshMinutes() const;

    /// Seconds for which a story is kept: 365 days when absent or no whole number; a number
    /// below 1 keeps stories for a hundred years.
    double storyRetention() const;

    /// An authority to trust for the update catalogue's host besides the usual ones.
    std::optional<std::filesystem::path> updateCatalogueAuthority() const;

private:
    std::optional<long long> wholeNumber(std::string_view key) const;

    std::filesystem::path file_;
    std::unique_ptr<QSettings> settings_;
};

}  // namespace desk
