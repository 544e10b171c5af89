#include <charconv>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Log/Log.h"
#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"
#include "Tarnwick_Brell/Arguments/Suggestion.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/Library/SharedSettings.h"

namespace cli {

namespace {

struct SettingsOptions {
    std::string key;
    std::optional<std::string> value;
};

const app::SettingKey& knownKey(const std::string& name) {
    if (const auto* key = app::Defaults::key(name)) return *key;
    std::vector<std::string> known;
    for (const auto& key : app::Defaults::keys()) known.emplace_back(key.name);
    throw WrongUsage(fmt::format("There is no setting named {}.{} brell settings lists them.", name,
                                 arguments::didYouMean(name, known)));
}

/// The value in use, and whether it is the default.
std::string shownValue(const app::SettingKey& key, const std::optional<std::string>& stored) {
    if (stored) return printable(key.shown(*stored));
    return key.absent.empty() ? std::string("(not set)") : fmt::format("{} (default)", key.absent);
}

/// The value in its JSON type.
boost::json::value typedValue(const app::SettingKey& key, const std::string& text) {
    using Type = app::SettingKey::Type;
    switch (key.type) {
        case Type::wholeNumber: {
            std::int64_t number = 0;
            const auto* const end = text.data() + text.size();
            const auto [stop, error] = std::from_chars(text.data(), end, number);
            // Another program may have written something else.
            if (error != std::errc() || stop != end) return boost::json::value(text);
            return number;
        }
        case Type::truthValue: return text == "true";
        case Type::deviceList:
            return boost::json::value_from(
                kit::parseDeviceList(text).value_or(std::vector<std::string>{}));
        default: return boost::json::value(key.shown(text));
    }
}

std::string_view typeName(app::SettingKey::Type type) {
    using Type = app::SettingKey::Type;
    switch (type) {
        case Type::wholeNumber: return "number";
        case Type::truthValue: return "boolean";
        case Type::deviceList: return "list";
        case Type::choice: return "choice";
        case Type::symbol: return "symbol";
        case Type::webAddress: return "address";
        case Type::file: return "file";
        case Type::logLevels: return "levels";
        case Type::secret: return "secret";
        case Type::mailAddress: return "mail address";
        case Type::timeOfDay: return "time of day";
        case Type::weekdays: return "weekdays";
    }
    return "";
}

/// "value" is the value in use, "isSet" whether the user set it. A setting that is not set and has
/// no default has neither "default" nor "value".
boost::json::object settingRecord(const app::SettingKey& key,
                                  const std::optional<std::string>& stored) {
    boost::json::object record{{"type", typeName(key.type)}, {"meaning", key.meaning}};
    if (!key.absent.empty()) record["default"] = typedValue(key, std::string(key.absent));
    if (stored || !key.absent.empty())
        record["value"] = typedValue(key, stored.value_or(std::string(key.absent)));
    record["isSet"] = stored.has_value();
    if (key.range) {
        record["least"] = key.range->least;
        record["most"] = key.range->most;
    }
    if (!key.choices.empty()) {
        auto& choices = record["choices"].emplace_array();
        for (const auto choice : key.choices) choices.emplace_back(choice);
    }
    return record;
}

int listSettings(Session& session) {
    auto& defaults = session.defaults();
    boost::json::object object;
    TextTable table({Column::whole("setting"), Column::cut("value", 20),
                     Column::cut("meaning", 24).dropped(1)});
    for (const auto& key : app::Defaults::keys()) {
        const auto stored = defaults.text(key.name);
        object[key.name] = settingRecord(key, stored);
        table.add({std::string(key.name), shownValue(key, stored), std::string(key.meaning)});
    }
    if (session.options().json) {
        session.out().line(boost::json::serialize(object));
    } else {
        table.print(session.out());
    }
    return kDone;
}

int showSetting(Session& session, const std::string& name) {
    const auto& key = knownKey(name);
    const auto stored = session.defaults().text(key.name);
    const auto text = stored.value_or(std::string(key.absent));
    session.out().line(
        session.options().json
            ? boost::json::serialize(text.empty() ? boost::json::value() : typedValue(key, text))
            : key.shown(text));
    return kDone;
}

/// The setting stands even where the library can't be written: the next desk records it.
void recordForOtherComputers(Session& session) {
    try {
        if (app::LocalStore::exists(session.paths().library))
            app::recordSettings(session.store(), app::travellingSettings(session.defaults()));
    } catch (const app::StoreError& error) {
        kit::log(kit::LogCategory::storage, kit::LogLevel::warning,
                 "the setting is not recorded for other computers: {}", error.what());
    }
}

int changeSetting(Session& session, const std::string& name, const std::string& value) {
    const auto& key = knownKey(name);
    try {
        session.defaults().set(key.name, value);
    } catch (const std::invalid_argument& error) {
        throw WrongUsage(error.what());
    }
    recordForOtherComputers(session);
    return session.options().json ? showSetting(session, name) : kDone;
}

}  // namespace

void addSettingsCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<SettingsOptions>();
    auto command = app.subcommand("settings", "List the settings, or read or write one");
    command.option("KEY", options->key, "The setting's name");
    command.option("VALUE", options->value, "Its new value; \"\" goes back to the default")
        .mayBeEmpty();
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) {
            if (options->key.empty()) return listSettings(session);
            return options->value ? changeSetting(session, options->key, *options->value)
                                  : showSetting(session, options->key);
        };
    });
}

}  // namespace cli
