#include "Tarnwick_Brell/Storage/Defaults.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <QSettings>
#include <QString>

#include "Tarnwick_Brell/Storage/StoreError.h"

namespace desk {

namespace {

constexpr std::string_view kRefreshMinutes = "refreshMinutes";
constexpr std::string_view kStoryRetentionDays = "storyRetentionDays";
constexpr std::string_view kUpdateCatalogueAuthority = "updateCatalogueAuthority";

constexpr std::array<SettingKey, 3> kKeys{{
    {kRefreshMinutes, "minutes between two automatic refreshes, at least 2", "5",
     SettingKey::Type::wholeNumber},
    {kStoryRetentionDays, "days for which stories are kept, 0 for ever", "365",
     SettingKey::Type::wholeNumber},
    {kUpdateCatalogueAuthority, "certificate file to trust for Apple's update catalogue", "",
     SettingKey::Type::file},
}};

constexpr int kRefreshMinutesWhenAbsent = 5;
constexpr int kFewestRefreshMinutes = 2;
constexpr long long kRetentionDaysWhenAbsent = 365;
constexpr double kSecondsPerDay = 86'400;
constexpr double kForever = 3.1536e9;

QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

void requireSuitable(const SettingKey& key, std::string_view value) {
    bool good = true;
    switch (key.type) {
        case SettingKey::Type::wholeNumber: qt(value).toLongLong(&good); break;
        case SettingKey::Type::file: good = std::filesystem::is_regular_file(value); break;
    }
    if (good) return;
    const bool number = key.type == SettingKey::Type::wholeNumber;
    throw std::invalid_argument("\"" + std::string(value) + "\" is not " +
                                (number ? "a whole number" : "a file that can be read") +
                                ", which " + std::string(key.name) + " needs.");
}

}  // namespace

Defaults::Defaults(const std::filesystem::path& file)
    : file_(file),
      settings_(std::make_unique<QSettings>(QString::fromStdString(file.string()),
                                            QSettings::IniFormat)) {}

Defaults::~Defaults() = default;

std::span<const SettingKey> Defaults::keys() { return kKeys; }

const SettingKey* Defaults::key(std::string_view name) {
    const auto found = std::find_if(kKeys.begin(), kKeys.end(),
                                    [&](const SettingKey& k) { return k.name == name; });
    return found == kKeys.end() ? nullptr : &*found;
}

std::optional<std::string> Defaults::text(std::string_view key) const {
    const auto value = settings_->value(qt(key));
    return value.isValid() ? std::optional(value.toString().toStdString()) : std::nullopt;
}

void Defaults::set(std::string_view name, std::string_view value) {
    const auto* known = key(name);
    if (!known) throw std::invalid_argument("There is no setting named " + std::string(name) + ".");
    if (value.empty()) {
        settings_->remove(qt(name));
    } else {
        requireSuitable(*known, value);
        settings_->setValue(qt(name), qt(value));
    }
    settings_->sync();
    if (settings_->status() != QSettings::NoError) {
        throw StoreError(StoreError::Reason::readOnly,
                         "The settings file " + file_.string() + " can't be written.");
    }
}

std::optional<long long> Defaults::wholeNumber(std::string_view key) const {
    const auto stored = text(key);
    if (!stored) return std::nullopt;
    bool good = false;
    const auto number = QString::fromStdString(*stored).toLongLong(&good);
    return good ? std::optional(number) : std::nullopt;
}

void Defaults::reload() { settings_->sync(); }

int Defaults::refreshMinutes() const {
    const auto minutes = wholeNumber(kRefreshMinutes).value_or(0);
    if (minutes == 0) return kRefreshMinutesWhenAbsent;
    constexpr long long mostMinutes = 1'000'000;
    return static_cast<int>(std::clamp<long long>(minutes, kFewestRefreshMinutes, mostMinutes));
}

double Defaults::storyRetention() const {
    const auto days = wholeNumber(kStoryRetentionDays).value_or(kRetentionDaysWhenAbsent);
    // Days beyond a hundred years would leave what an instant can hold.
    return days < 1 ? kForever : std::min(static_cast<double>(days) * kSecondsPerDay, kForever);
}

std::optional<std::filesystem::path> Defaults::updateCatalogueAuthority() const {
    const auto stored = text(kUpdateCatalogueAuthority);
    return stored && !stored->empty() ? std::optional(std::filesystem::path(*stored))
                                      : std::nullopt;
}

}  // namespace desk
