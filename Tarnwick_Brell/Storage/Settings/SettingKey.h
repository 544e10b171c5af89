#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace app {

/// One key of the settings: its meaning, its default, its valid values.
struct SettingKey {
    enum class Type {
        wholeNumber,
        truthValue,
        choice,
        symbol,
        webAddress,
        file,
        deviceList,
        logLevels,
        secret,  ///< never shown
        mailAddress,
        timeOfDay,  ///< "22:30"
        weekdays    ///< "mon, tue"
    };

    /// Where people look for it.
    enum class Section { general, appearance, sources, alerts, trackers, library, privacy, about };
    /// Some values are read once, when the program starts.
    enum class Effect { atOnce, atNextStart };

    std::string_view name;
    Section section;
    std::string_view title;
    std::string_view meaning;
    std::string_view absent;  ///< the default
    Type type;
    std::span<const std::string_view> choices{};

    struct Range {
        long long least;
        long long most;
    };
    std::optional<Range> range{};  ///< of a whole number
    Effect effect = Effect::atOnce;

    /// All settings of the user.
    static std::span<const SettingKey> all();
    /// Null when there is no such key.
    static const SettingKey* named(std::string_view name);

    /// The value in its stored form ("on" as "true", "aapl" as "AAPL"). Throws
    /// std::invalid_argument with a sentence for the user when it is invalid for the key.
    std::string stored(std::string_view value) const;

    static constexpr std::string_view kRefreshMinutes = "refreshMinutes";
    static constexpr std::string_view kStoryRetentionDays = "storyRetentionDays";
    static constexpr std::string_view kUpdateCatalogueAuthority = "updateCatalogueAuthority";
    static constexpr std::string_view kSigningDevices = "signingDevices";
    static constexpr std::string_view kNotifications = "notifications";
    static constexpr std::string_view kAlertServiceStatus = "alertServiceStatus";
    static constexpr std::string_view kAlertReleases = "alertReleases";
    static constexpr std::string_view kAlertStories = "alertStories";
    static constexpr std::string_view kAlertSound = "alertSound";
    static constexpr std::string_view kQuietHours = "quietHours";
    static constexpr std::string_view kQuietFrom = "quietFrom";
    static constexpr std::string_view kQuietTo = "quietTo";
    static constexpr std::string_view kQuietWeekdays = "quietWeekdays";
    static constexpr std::string_view kQuoteRange = "quoteRange";
    static constexpr std::string_view kFocusSymbol = "focusSymbol";
    static constexpr std::string_view kServiceAddress = "serviceAddress";
    static constexpr std::string_view kAppearance = "appearance";
    static constexpr std::string_view kTextSize = "textSize";
    static constexpr std::string_view kDensity = "density";
    static constexpr std::string_view kReaderPlace = "readerPlace";
    static constexpr std::string_view kPictures = "pictures";
    static constexpr std::string_view kStartWithDesktop = "startWithDesktop";
    static constexpr std::string_view kLogLevels = "logLevels";
    static constexpr std::string_view kCourtListenerToken = "courtListenerToken";
    static constexpr std::string_view kContactAddress = "contactAddress";

    /// What is shown of a stored value: of a secret no more than that there is one.
    std::string shown(std::string_view value) const;
};

}  // namespace app
