#include "Tarnwick_Brell/CommandLine/AlertActions.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <vector>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "NewsroomKit/Alerts/AlertRuleText.h"
#include "NewsroomKit/Newsrooms/UUID.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Alerts/BuiltInAlerts.h"
#include "Tarnwick_Brell/CommandLine/AlertRehearsal.h"
#include "Tarnwick_Brell/CommandLine/RecordLookup.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace cli {

namespace {

using app::AlertRuleRecords;
using app::BuiltInAlert;
using kit::AlertRule;

constexpr std::string_view kRule = "rule";

std::string kindText(BuiltInAlert::Kind kind) {
    switch (kind) {
        case BuiltInAlert::Kind::setting: return "built in";
        case BuiltInAlert::Kind::beat: return "beat";
        case BuiltInAlert::Kind::panel: return "panel";
    }
    return {};
}

std::string ruleText(app::LocalStore& store, const AlertRule& rule) {
    std::string beat;
    if (const auto* stories = std::get_if<kit::StoriesTrigger>(&rule.trigger);
        stories && stories->beat) {
        const auto beats = app::BeatRecords::read(store.beats());
        const auto* entry = beats.find(*stories->beat);
        beat = entry ? entry->name : *stories->beat + " (removed)";
    }
    auto text = kit::alertTriggerText(rule.trigger, beat);
    const auto how = kit::alertDeliveryText(rule.delivery);
    return how.empty() ? text : fmt::format("{} ({})", text, how);
}

std::vector<BuiltInAlert> builtIn(Session& session, app::LocalStore& store) {
    return app::builtInAlerts(session.defaults(), app::BeatRecords::read(store.beats()),
                              app::NewsroomRecords::read(store.newsrooms()));
}

/// What a rule has told, in the last two columns of the list.
struct ToldCells {
    std::string last = "never";
    std::string count = "0";
};

ToldCells toldBy(const app::AlertLog& log, const std::string& rule) {
    const auto counts = log.counts.find(rule);
    if (counts == log.counts.end()) return {};
    const auto& [matches, lastTold] = counts->second;
    return {.last = lastTold ? momentText(*lastTold) : "never", .count = std::to_string(matches)};
}

boost::json::object builtInRecord(const BuiltInAlert& alert) {
    return {{"id", alert.id}, {"name", alert.name}, {"on", alert.isOn}, {"builtIn", true}};
}

void confirm(Session& session, const AlertRule& rule, std::string_view what) {
    if (session.options().json) {
        session.out().line(boost::json::serialize(kit::encode(rule)));
        return;
    }
    session.out().line(fmt::format("{} {}. {}", what, printable(rule.name),
                                   printable(ruleText(session.store(), rule))));
    if (const auto problem = kit::alertRuleProblem(rule, session.now()))
        session.out().line(*problem);
}

void put(Session& session, AlertRuleRecords& rules, AlertRule rule) {
    write(session, session.store().alertRules(), rules.put(std::move(rule)));
}

/// Switches a rule that the desk has of itself; false when there is none of that name.
bool switchBuiltIn(Session& session, const std::string& name, bool on) {
    auto& store = session.store();
    for (const auto& alert : builtIn(session, store)) {
        if (alert.id != name && kit::fold(alert.name) != kit::fold(name)) continue;
        switch (alert.kind) {
            case BuiltInAlert::Kind::setting:
                session.defaults().set(alert.target, on ? "true" : "false");
                break;
            case BuiltInAlert::Kind::beat: {
                auto beats = app::BeatRecords::read(store.beats());
                auto beat = readable(*beats.find(alert.target), "beat");
                beat.alerts = on;
                write(session, store.beats(), beats.put(std::move(beat)));
                break;
            }
            case BuiltInAlert::Kind::panel:
                throw WrongUsage(
                    "The alerts of a panel are among its options: brell newsroom changes them.");
        }
        session.out().line(fmt::format("{} is {}.", printable(alert.name), on ? "on" : "off"));
        return true;
    }
    return false;
}

int switchAlert(Session& session, const AlertActionOptions& options, bool on) {
    auto rules = AlertRuleRecords::read(session.store().alertRules());
    const auto meant = AlertRuleRecords::meant(rules.entries(), options.name);
    if (meant.empty() && switchBuiltIn(session, options.name, on)) return kDone;
    auto rule = readable(named(rules.entries(), options.name, kRule), kRule);
    rule.on = on;
    put(session, rules, rule);
    confirm(session, rule, on ? "Switched on:" : "Switched off:");
    return kDone;
}

}  // namespace

int listAlerts(Session& session) {
    auto& store = session.storeForReading();
    const auto rules = AlertRuleRecords::read(store.alertRules());
    const auto alerts = builtIn(session, store);
    if (session.options().json) {
        auto records = recordsOf(rules);
        for (const auto& alert : alerts) records.push_back(builtInRecord(alert));
        session.out().line(boost::json::serialize(records));
        return kDone;
    }
    const auto log = app::readAlertLog(store, session.now());
    TextTable table({Column::whole("rule"), Column::cut("tells of", 24), Column::whole("is"),
                     Column::whole("last told").dropped(1), Column::whole("14 days").dropped(2)});
    for (const auto& alert : alerts) {
        const auto told = toldBy(log, alert.id);
        table.add({printable(alert.name), kindText(alert.kind), alert.isOn ? "on" : "off",
                   told.last, told.count});
    }
    for (const auto& entry : rules.entries()) {
        const auto told = toldBy(log, entry.id);
        const auto text =
            entry.value ? ruleText(store, *entry.value) : "unreadable: " + entry.fault;
        table.add({printable(entry.name), printable(text),
                   entry.value && entry.value->on ? "on" : "off", told.last, told.count});
    }
    table.print(session.out());
    return kDone;
}

int newAlert(Session& session, const AlertActionOptions& options) {
    auto rules = AlertRuleRecords::read(session.store().alertRules());
    const auto name = trimmed(options.name);
    if (name.empty()) throw WrongUsage("The rule needs a name.");
    requireFree(rules, name, kRule);
    try {
        app::requireRoomForRule(rules);
    } catch (const std::length_error& error) {
        throw WorkFailed(error.what());
    }
    const AlertRule rule{.id = kit::UUID::random().text(),
                         .name = name,
                         .on = !options.off,
                         .trigger = options.rule.trigger(session.store()),
                         .delivery = options.rule.delivery(session.now())};
    try {
        put(session, rules, kit::decode<AlertRule>(kit::encode(rule)));
    } catch (const kit::RecordError& error) {
        throw WrongUsage(fmt::format("This is not a valid rule: {}.", error.what()));
    }
    confirm(session, rule, "Added");
    return kDone;
}

int rehearseAlert(Session& session, const AlertActionOptions& options) {
    auto& store = session.storeForReading();
    if (options.name.empty() == !options.rule.hasTrigger())
        throw WrongUsage("Name a rule or say what it would tell of, one of the two.");
    AlertRule rule{.id = "tried", .name = "New rule"};
    if (options.name.empty()) {
        rule.trigger = options.rule.trigger(store);
        rule.delivery = options.rule.delivery(session.now());
    } else {
        const auto rules = AlertRuleRecords::read(store.alertRules());
        rule = readable(named(rules.entries(), options.name, kRule), kRule);
    }
    printRehearsal(session, rule, static_cast<std::size_t>(options.days));
    return kDone;
}

int switchAlertOn(Session& session, const AlertActionOptions& options) {
    return switchAlert(session, options, true);
}

int switchAlertOff(Session& session, const AlertActionOptions& options) {
    return switchAlert(session, options, false);
}

int removeAlert(Session& session, const AlertActionOptions& options) {
    auto rules = AlertRuleRecords::read(session.store().alertRules());
    const auto entry = named(rules.entries(), options.name, kRule);
    write(session, session.store().alertRules(), *rules.remove(entry.id));
    if (session.options().json) {
        session.out().line(boost::json::serialize(recordOf(entry)));
    } else {
        session.advise(
            fmt::format("Removed {0}. brell alerts restore restores it.", printable(entry.name)));
    }
    return kDone;
}

int restoreAlert(Session& session, const AlertActionOptions& options) {
    auto rules = AlertRuleRecords::read(session.store().alertRules());
    if (rules.removed().empty()) throw WorkFailed("No rule has been removed.");
    const auto entry =
        restored(session, session.store().alertRules(), rules,
                 options.name.empty() ? rules.removed().front()
                                      : lastRemoved(rules.removed(), options.name, kRule));
    if (session.options().json) {
        session.out().line(boost::json::serialize(recordOf(entry)));
    } else {
        session.out().line(fmt::format("{} was restored.", printable(entry.name)));
    }
    return kDone;
}

int showAlertHistory(Session& session, const AlertActionOptions& options) {
    auto& store = session.storeForReading();
    std::string rule;
    if (!options.name.empty()) {
        const auto rules = AlertRuleRecords::read(store.alertRules());
        const auto alerts = builtIn(session, store);
        const auto known = std::ranges::find_if(alerts, [&](const BuiltInAlert& alert) {
            return alert.id == options.name || kit::fold(alert.name) == kit::fold(options.name);
        });
        rule = known != alerts.end() ? known->id : named(rules.entries(), options.name, kRule).id;
    }
    printAlertHistory(session,
                      store.alerts().newest(static_cast<std::size_t>(options.limit), rule));
    return kDone;
}

}  // namespace cli
