#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/Storage/Settings/Autostart.h"
#include "Tarnwick_Brell/Storage/Settings/SettingKey.h"

class QSettings;

namespace app {

/// The user's settings: a key-value file. Reading never fails: an invalid value is replaced
/// according to its key. Writing throws StoreError.
class Defaults : public QObject {
    Q_OBJECT
public:
    explicit Defaults(const std::filesystem::path& file);
    ~Defaults() override;

    static std::span<const SettingKey> keys() { return SettingKey::all(); }
    /// Null when there is no such key.
    static const SettingKey* key(std::string_view name) { return SettingKey::named(name); }

    /// As stored; nothing when absent.
    std::optional<std::string> text(std::string_view key) const;
    /// Throws std::invalid_argument with a sentence for the user when the value is invalid for the
    /// key. The empty text removes the key.
    void set(std::string_view key, std::string_view value);

    /// Reads changes by other programs.
    void reload();

    /// Minutes between automatic passes: 5 when absent or 0, otherwise at least 2.
    int refreshMinutes() const;

    /// Seconds for which a story is kept: 365 days when absent or not a whole number; a number
    /// below 1 means a hundred years.
    double storyRetention() const;

    /// An additional authority for the update catalogue's host.
    std::optional<std::filesystem::path> updateCatalogueAuthority() const;

    /// The mail address that the SEC is given; empty when there is none.
    std::string contactAddress() const;

    /// Of the user's account at CourtListener; empty when there is none.
    std::string courtListenerToken() const;

    /// The models whose firmware signing is tracked.
    std::vector<std::string> signingDevices() const;

    /// The value in its stored form, or the key's default.
    std::string value(std::string_view key) const { return suitable(key); }

    /// The value of a key that takes "true" or "false".
    bool isOn(std::string_view key) const;

    kit::QuoteRange quoteRange() const;
    std::string focusSymbol() const;
    std::string serviceAddress() const;
    /// The place of the value in the key's choices.
    int choice(std::string_view key) const;
    /// In per cent of the desktop's.
    int textSize() const;
    /// Where the settings are stored.
    const std::filesystem::path& file() const { return file_; }

    /// State that the desk stores between runs, under keys that are not settings. An invalid value
    /// counts as absent.
    using Memory = std::map<std::string, std::string>;
    std::optional<Memory> memory(std::string_view key) const;
    void remember(std::string_view key, const Memory& memory);

    static constexpr std::string_view kKnownServiceProblems = "knownServiceProblems";
    static constexpr std::string_view kKnownBuilds = "knownBuilds";
    static constexpr std::string_view kQuietUntil = "quietUntil";

signals:
    /// This program has set or removed the value of a setting.
    void changed(const QString& key);

private:
    std::string suitable(std::string_view key) const;
    std::optional<long long> wholeNumber(std::string_view key) const;
    void write();

    std::filesystem::path file_;
    Autostart autostart_;
    std::unique_ptr<QSettings> settings_;
};

}  // namespace app
