#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/TextTable.h"

namespace brell {

namespace {

struct SettingsOptions {
    std::string key;
    std::optional<std::string> value;
};

const desk::SettingKey& knownKey(const std::string& name) {
    if (const auto* key = desk::Defaults::key(name)) return *key;
    std::string names;
    for (const auto& key : desk::Defaults::keys())
        names += (names.empty() ? "" : ", ") + std::string(key.name);
    throw WrongUsage("There is no setting named " + name + ". The settings are " + names + ".");
}

/// What holds, and whether the user said so.
std::string shownValue(const desk::SettingKey& key, const std::optional<std::string>& stored) {
    if (stored) return printable(*stored);
    return key.absent.empty() ? std::string("(not set)") : fmt::format("{} (default)", key.absent);
}

int listSettings(Session& session) {
    auto& defaults = session.defaults();
    boost::json::object object;
    TextTable table({"setting", "value", "meaning"});
    for (const auto& key : desk::Defaults::keys()) {
        const auto stored = defaults.text(key.name);
        if (stored) object[key.name] = *stored;
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
    if (session.options().json) {
        session.out().line(
            boost::json::serialize(stored ? boost::json::value(*stored) : boost::json::value()));
    } else {
        session.out().line(stored.value_or(std::string(key.absent)));
    }
    return kDone;
}

int changeSetting(Session& session, const std::string& name, const std::string& value) {
    const auto& key = knownKey(name);
    try {
        session.defaults().set(key.name, value);
    } catch (const std::invalid_argument& error) {
        throw WrongUsage(error.what());
    }
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

}  // namespace brell
