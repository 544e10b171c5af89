#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

#include <algorithm>
#include <stdexcept>

#include <QSettings>
#include <QString>

#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"
#include "Tarnwick_Brell/Storage/Files/PrivateFiles.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace {

constexpr int kRefreshMinutesWhenAbsent = 5;
constexpr int kFewestRefreshMinutes = 2;
constexpr long long kRetentionDaysWhenAbsent = 365;
constexpr double kSecondsPerDay = 86'400;
constexpr double kForever = 3.1536e9;

QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::unique_ptr<QSettings> open(const std::filesystem::path& file) {
    return std::make_unique<QSettings>(QString::fromStdString(file.string()), QSettings::IniFormat);
}

}  // namespace

Defaults::Defaults(const std::filesystem::path& file)
    : file_(file), autostart_(file), settings_(open(file)) {}

Defaults::~Defaults() = default;

std::optional<std::string> Defaults::text(std::string_view key) const {
    if (key == SettingKey::kStartWithDesktop)
        return autostart_.isOn() ? std::optional<std::string>("true") : std::nullopt;
    const auto value = settings_->value(qt(key));
    return value.isValid() ? std::optional(value.toString().toStdString()) : std::nullopt;
}

void Defaults::set(std::string_view name, std::string_view value) {
    const auto* known = key(name);
    if (!known) throw std::invalid_argument("There is no setting named " + std::string(name) + ".");
    const auto stored = value.empty() ? std::string() : known->stored(value);
    if (name == SettingKey::kStartWithDesktop) {
        autostart_.set(stored == "true");
    } else {
        if (stored.empty())
            settings_->remove(qt(name));
        else
            settings_->setValue(qt(name), qt(stored));
        write();
    }
    emit changed(qt(name));
}

void Defaults::write() {
    // Qt preserves the permissions of the file.
    makePrivateFolder(file_.parent_path());
    makePrivateFile(file_);
    settings_->sync();
    if (settings_->status() != QSettings::NoError) {
        // The object would keep reporting this failure; reopening drops the unwritten change.
        settings_ = open(file_);
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
    const auto minutes = wholeNumber(SettingKey::kRefreshMinutes).value_or(0);
    if (minutes == 0) return kRefreshMinutesWhenAbsent;
    constexpr long long mostMinutes = 1'000'000;
    return static_cast<int>(std::clamp<long long>(minutes, kFewestRefreshMinutes, mostMinutes));
}

double Defaults::storyRetention() const {
    const auto days =
        wholeNumber(SettingKey::kStoryRetentionDays).value_or(kRetentionDaysWhenAbsent);
    // More than a hundred years would overflow an instant.
    return days < 1 ? kForever : std::min(static_cast<double>(days) * kSecondsPerDay, kForever);
}

std::optional<std::filesystem::path> Defaults::updateCatalogueAuthority() const {
    const auto stored = text(SettingKey::kUpdateCatalogueAuthority);
    return stored && !stored->empty() ? std::optional(std::filesystem::path(*stored))
                                      : std::nullopt;
}

std::string Defaults::suitable(std::string_view name) const {
    const auto* known = key(name);
    if (!known) throw std::logic_error("a setting without a row in the table");
    try {
        if (const auto value = text(name)) return known->stored(*value);
    } catch (const std::invalid_argument&) {
        // The value was edited by hand or written by another version.
    }
    return std::string(known->absent);
}

std::string Defaults::contactAddress() const { return suitable(SettingKey::kContactAddress); }

std::string Defaults::courtListenerToken() const {
    return suitable(SettingKey::kCourtListenerToken);
}

std::vector<std::string> Defaults::signingDevices() const {
    return kit::parseDeviceList(suitable(SettingKey::kSigningDevices)).value();
}

bool Defaults::isOn(std::string_view key) const { return suitable(key) == "true"; }

kit::QuoteRange Defaults::quoteRange() const {
    return kit::enumFromRaw<kit::QuoteRange>(suitable(SettingKey::kQuoteRange)).value();
}

std::string Defaults::focusSymbol() const { return suitable(SettingKey::kFocusSymbol); }

std::string Defaults::serviceAddress() const { return suitable(SettingKey::kServiceAddress); }

int Defaults::choice(std::string_view name) const {
    const auto value = suitable(name);
    const auto choices = key(name)->choices;
    return static_cast<int>(std::ranges::find(choices, value) - choices.begin());
}

int Defaults::textSize() const { return std::stoi(suitable(SettingKey::kTextSize)); }

std::optional<Defaults::Memory> Defaults::memory(std::string_view key) const {
    const auto stored = text(key);
    if (!stored) return std::nullopt;
    try {
        return kit::decode<Memory>(kit::parseJSON(*stored));
    } catch (const kit::RecordError&) {
        return std::nullopt;
    }
}

void Defaults::remember(std::string_view key, const Memory& memory) {
    settings_->setValue(qt(key), qt(boost::json::serialize(kit::encode(memory))));
    write();
}

}  // namespace app
