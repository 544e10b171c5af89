#include "Tarnwick_Brell/Storage/Settings/SettingKey.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <vector>

#include <QString>
#include <QStringList>
#include <QTime>
#include <fmt/format.h>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Log/Log.h"
#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "NewsroomKit/Trackers/TrackerAPI.h"
#include "Tarnwick_Brell/Storage/Settings/KeepingSetting.h"
#include "Tarnwick_Brell/Storage/Settings/TraySetting.h"

namespace app {

using kit::QuoteRange;
using kit::rawValue;

namespace {

using Section = SettingKey::Section;
using Type = SettingKey::Type;

constexpr std::array kQuoteRanges{rawValue(QuoteRange::day), rawValue(QuoteRange::week),
                                  rawValue(QuoteRange::month), rawValue(QuoteRange::year)};

constexpr std::array<std::string_view, 3> kCloseToTrayChoices{"ask", "yes", "no"};

constexpr std::array<std::string_view, 3> kAppearances{"system", "light", "dark"};
constexpr std::array<std::string_view, 3> kDensities{"compact", "standard", "roomy"};
constexpr std::array<std::string_view, 3> kReaderPlaces{"right", "below", "hidden"};

// Some models of each product line; the others of a line are signed alike.
constexpr std::string_view kCurrentDevices =
    "iPhone18,3, iPhone18,4, iPhone18,1, iPhone17,5, iPad17,1, iPad15,3, iPad15,7, iPad16,1, "
    "Mac16,12, Mac17,2";

constexpr std::array kKeys{
    SettingKey{SettingKey::kRefreshMinutes,
               Section::general,
               "Minutes between refreshes",
               "minutes between two automatic refreshes, at least 2",
               "5",
               Type::wholeNumber,
               {},
               SettingKey::Range{2, 1440}},
    SettingKey{SettingKey::kStoryRetentionDays,
               Section::library,
               "Days stories are kept",
               "days for which stories are kept, 0 for ever",
               "365",
               Type::wholeNumber,
               {},
               SettingKey::Range{0, 36'500}},
    SettingKey{SettingKey::kNotifications, Section::alerts, "Notifications",
               "whether the desk may show notifications", "true", Type::truthValue},
    SettingKey{SettingKey::kAlertServiceStatus, Section::alerts, "Service problems and recoveries",
               "notify when an Apple service fails or returns", "true", Type::truthValue},
    SettingKey{SettingKey::kAlertReleases, Section::alerts, "New builds",
               "notify of new builds of Apple's systems", "true", Type::truthValue},
    SettingKey{SettingKey::kAlertStories, Section::alerts, "Every new story",
               "notify of every new story", "false", Type::truthValue},
    SettingKey{SettingKey::kAlertSound, Section::alerts, "Sound",
               "whether notifications play a sound", "false", Type::truthValue},
    SettingKey{SettingKey::kQuietHours, Section::alerts, "Quiet hours",
               "whether what comes at certain hours is told as one summary at their end", "false",
               Type::truthValue},
    SettingKey{SettingKey::kQuietFrom, Section::alerts, "Quiet from",
               "when quiet hours begin, by this computer's clock", "22:30", Type::timeOfDay},
    SettingKey{SettingKey::kQuietTo, Section::alerts, "Quiet to",
               "when quiet hours end; a time before their beginning is one of the next day",
               "07:00", Type::timeOfDay},
    SettingKey{SettingKey::kQuietWeekdays, Section::alerts, "Quiet on",
               "days on which quiet hours begin", "mon, tue, wed, thu, fri, sat, sun",
               Type::weekdays},
    SettingKey{SettingKey::kFocusSymbol, Section::trackers, "Followed symbol",
               "the symbol whose quote is followed", "AAPL", Type::symbol},
    SettingKey{SettingKey::kQuoteRange, Section::trackers, "Period of quotes",
               "the period that the share's quote covers", rawValue(QuoteRange::month),
               Type::choice, kQuoteRanges},
    SettingKey{SettingKey::kServiceAddress, Section::sources, "Service address",
               "the service for releases, calendar and quotes", kit::TrackerAPI::kServiceAddress,
               Type::webAddress},
    SettingKey{SettingKey::kContactAddress, Section::trackers, "Mail address for the SEC",
               "your mail address, which the SEC asks every program to name; filings are followed "
               "once it is set",
               "", Type::mailAddress},
    SettingKey{SettingKey::kCourtListenerToken, Section::trackers, "Token for CourtListener",
               "token of your account at CourtListener, with which new cases are searched for", "",
               Type::secret},
    SettingKey{SettingKey::kUpdateCatalogueAuthority,
               Section::trackers,
               "Certificate of the update catalogue",
               "certificate file to trust for Apple's update catalogue",
               "",
               Type::file,
               {},
               {},
               SettingKey::Effect::atNextStart},
    SettingKey{SettingKey::kSigningDevices, Section::trackers, "Devices for signing",
               "models for which firmware signing is followed", kCurrentDevices, Type::deviceList},
    SettingKey{SettingKey::kAppearance, Section::appearance, "Light or dark",
               "whether the window is light, dark or as the desktop is", "system", Type::choice,
               kAppearances},
    SettingKey{SettingKey::kTextSize,
               Section::appearance,
               "Text size",
               "size of all text, in per cent of the desktop's",
               "100",
               Type::wholeNumber,
               {},
               SettingKey::Range{75, 250}},
    SettingKey{SettingKey::kDensity, Section::appearance, "Density",
               "how much room each row of a list has", "standard", Type::choice, kDensities},
    SettingKey{SettingKey::kReaderPlace, Section::appearance, "Reader",
               "where the chosen story is shown beside the list", "right", Type::choice,
               kReaderPlaces},
    SettingKey{SettingKey::kPictures, Section::appearance, "Pictures",
               "whether pictures are fetched from their publishers and shown", "false",
               Type::truthValue},
    SettingKey{kKeepSavedText, Section::library, "Text of saved stories",
               "whether the page of a story is fetched and its text kept when you save the story",
               "false", Type::truthValue},
    SettingKey{SettingKey::kStartWithDesktop, Section::general, "Start with the desktop",
               "whether the window opens when a session of the desktop begins", "false",
               Type::truthValue},
    SettingKey{kCloseToTray, Section::general, "Closing the window",
               "whether closing the window leaves the desk in the tray", "ask", Type::choice,
               kCloseToTrayChoices},
    SettingKey{SettingKey::kLogLevels,
               Section::privacy,
               "Log",
               "how much the program's log records, overall or by category",
               "info",
               Type::logLevels,
               {},
               {},
               SettingKey::Effect::atNextStart},
};

constexpr std::size_t kLongestSymbol = 24;

std::optional<std::string> truthValue(std::string_view text) {
    constexpr std::array<std::string_view, 4> yes{"true", "on", "yes", "1"};
    constexpr std::array<std::string_view, 4> no{"false", "off", "no", "0"};
    const auto word = kit::lowercasedASCII(text);
    if (std::ranges::find(yes, word) != yes.end()) return "true";
    if (std::ranges::find(no, word) != no.end()) return "false";
    return std::nullopt;
}

bool isNumberWithin(const std::optional<SettingKey::Range>& range, std::string_view text) {
    bool good = false;
    const auto number =
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toLongLong(&good);
    return good && (!range || (number >= range->least && number <= range->most));
}

/// "AAPL", "BRK.B", "^GSPC", "005930.KS", "GBPUSD=X".
bool isSymbol(std::string_view text) {
    constexpr std::string_view signs = ".^-=/:";
    const bool fits = !text.empty() && text.size() <= kLongestSymbol;
    return fits && std::ranges::all_of(text, [&](char c) {
               return kit::isASCIIAlphanumeric(c) || signs.find(c) != std::string_view::npos;
           });
}

/// Services use capital letters for symbols.
std::string capitals(std::string_view text) {
    std::string form(text);
    for (auto& letter : form) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    return form;
}

/// Only HTTPS is supported, and the client adds the path.
bool isServiceAddress(std::string_view text) {
    const auto address = kit::WebAddress::parse(text);
    return address && address->scheme == "https" && !address->query && !address->fragment;
}

/// It becomes part of a header's line.
bool isMailAddress(std::string_view text) {
    constexpr std::size_t longest = 100;
    const auto at = text.find('@');
    const bool isPlain = std::ranges::all_of(
        text, [](char c) { return c > ' ' && c < 0x7F && c != '(' && c != ')' && c != ','; });
    return isPlain && text.size() <= longest && at > 0 && at != std::string_view::npos &&
           text.find('@', at + 1) == std::string_view::npos &&
           text.find('.', at + 2) != std::string_view::npos && !text.ends_with('.');
}

/// Limits the number of devices, because each is a request per round.
std::optional<std::string> deviceList(std::string_view text) {
    constexpr std::size_t kMost = 40;
    const auto devices = kit::parseDeviceList(text);
    if (!devices || devices->empty() || devices->size() > kMost) return std::nullopt;
    return fmt::format("{}", fmt::join(*devices, ", "));
}

/// "7:00" as "07:00".
std::optional<std::string> timeOfDay(std::string_view text) {
    const auto time = QTime::fromString(QString::fromUtf8(text.data(), std::ssize(text)), u"H:mm");
    return time.isValid() ? std::optional(time.toString(u"HH:mm").toStdString()) : std::nullopt;
}

/// "Sun,Monday" as "mon, sun".
std::optional<std::string> weekdayList(std::string_view text) {
    constexpr std::array<std::string_view, 7> names{"monday", "tuesday",  "wednesday", "thursday",
                                                    "friday", "saturday", "sunday"};
    constexpr std::size_t shortest = 3;
    std::array<bool, 7> isNamed{};
    const auto words = QString::fromUtf8(text.data(), std::ssize(text)).toLower().split(u',');
    for (const auto& part : words) {
        const auto word = part.trimmed().toStdString();
        const auto day = std::ranges::find_if(names, [&](std::string_view name) {
            return word.size() >= shortest && name.starts_with(word);
        });
        if (day == names.end()) return std::nullopt;
        isNamed[static_cast<std::size_t>(day - names.begin())] = true;
    }
    std::vector<std::string_view> named;
    for (std::size_t day = 0; day < names.size(); ++day) {
        if (isNamed[day]) named.push_back(names[day].substr(0, shortest));
    }
    return fmt::format("{}", fmt::join(named, ", "));
}

std::string wanted(const SettingKey& key) {
    switch (key.type) {
        case Type::wholeNumber:
            return key.range ? fmt::format("a whole number from {} to {}", key.range->least,
                                           key.range->most)
                             : "a whole number";
        case Type::truthValue: return "\"true\" or \"false\"";
        case Type::choice: return fmt::format("one of {}", fmt::join(key.choices, ", "));
        case Type::symbol: return "the symbol of a share or an index";
        case Type::webAddress: return "an address that begins with https:// and names a host";
        case Type::file: return "a file that can be read";
        case Type::deviceList: return "a list of models such as \"iPhone18,3, iPad16,1\"";
        case Type::logLevels: return "a level such as \"warning\" or \"info,http=debug\"";
        case Type::secret: return "letters and digits without blanks";
        case Type::mailAddress: return "a mail address";
        case Type::timeOfDay: return "a time of day such as \"22:30\"";
        case Type::weekdays: return "a list of days such as \"mon, tue\"";
    }
    throw std::logic_error("a setting without a type");
}

std::optional<std::string> suitable(const SettingKey& key, std::string_view value) {
    bool good = false;
    switch (key.type) {
        case Type::wholeNumber: good = isNumberWithin(key.range, value); break;
        case Type::truthValue: return truthValue(value);
        case Type::choice: good = std::ranges::find(key.choices, value) != key.choices.end(); break;
        case Type::symbol: return isSymbol(value) ? std::optional(capitals(value)) : std::nullopt;
        case Type::webAddress: good = isServiceAddress(value); break;
        case Type::file: good = std::filesystem::is_regular_file(value); break;
        case Type::deviceList: return deviceList(value);
        case Type::timeOfDay: return timeOfDay(value);
        case Type::weekdays: return weekdayList(value);
        case Type::logLevels: good = kit::LogLevels::parseError(value).empty(); break;
        case Type::mailAddress: good = isMailAddress(value); break;
        case Type::secret: good = std::ranges::all_of(value, kit::isASCIIAlphanumeric); break;
    }
    return good ? std::optional(std::string(value)) : std::nullopt;
}

}  // namespace

std::span<const SettingKey> SettingKey::all() { return kKeys; }

const SettingKey* SettingKey::named(std::string_view name) {
    const auto found = std::ranges::find(kKeys, name, &SettingKey::name);
    return found == kKeys.end() ? nullptr : &*found;
}

std::string SettingKey::shown(std::string_view value) const {
    return type == Type::secret && !value.empty() ? "••••••••" : std::string(value);
}

std::string SettingKey::stored(std::string_view value) const {
    if (auto form = suitable(*this, value)) return *std::move(form);
    throw std::invalid_argument(
        fmt::format("\"{}\" is not {}, which {} needs.", value, wanted(*this), name));
}

}  // namespace app
