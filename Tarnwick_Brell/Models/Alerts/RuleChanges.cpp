#include "Tarnwick_Brell/Models/Alerts/RuleChanges.h"

#include <optional>
#include <stdexcept>

#include <QCoreApplication>

#include "NewsroomKit/Alerts/AlertRuleText.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

struct RuleChanges {
    Q_DECLARE_TR_FUNCTIONS(RuleChanges)
};

}  // namespace

QString ruleProblem(const DeskStores& stores, const kit::AlertRule& rule) {
    if (rule.name.empty()) return RuleChanges::tr("Give the rule a name.");
    const auto& rules = stores.alerts.rules();
    for (const auto* other : AlertRuleRecords::meant(rules.entries(), rule.name)) {
        if (other->id != rule.id)
            return RuleChanges::tr("There is a rule named %1 already.").arg(titleText(other->name));
    }
    try {
        if (!rules.find(rule.id)) requireRoomForRule(rules);
        kit::decode<kit::AlertRule>(kit::encode(rule));
    } catch (const std::length_error& error) {
        return titleText(error.what());
    } catch (const kit::RecordError& error) {
        return RuleChanges::tr("This is not a valid rule: %1.").arg(titleText(error.what()));
    }
    if (const auto problem = kit::alertRuleProblem(rule, stores.clock()))
        return titleText(*problem);
    return {};
}

void putRule(const DeskStores& stores, const kit::AlertRule& rule, const QString& notice) {
    auto& alerts = stores.alerts;
    const auto id = rule.id;
    const auto* entry = alerts.rules().find(id);
    const auto before = entry ? entry->value : std::nullopt;
    const auto text = before ? RuleChanges::tr("Change rule %1") : RuleChanges::tr("New rule %1");
    alerts.put(rule);
    UndoStack::Step step{.text = text.arg(titleText(rule.name)), .notice = notice};
    if (before) {
        step.undo = [&alerts, before] { alerts.put(*before); };
        step.redo = [&alerts, rule] { alerts.put(rule); };
    } else {
        step.undo = [&alerts, id] { alerts.remove(id); };
        step.redo = [&alerts, id] { alerts.restore(id); };
    }
    stores.undo.push(std::move(step));
}

void removeRule(const DeskStores& stores, const std::string& id) {
    auto& alerts = stores.alerts;
    const auto* entry = alerts.rules().find(id);
    if (!entry) return;
    const auto name = titleText(entry->name);
    alerts.remove(id);
    stores.undo.push({.text = RuleChanges::tr("Remove rule %1").arg(name),
                      .undo = [&alerts, id] { alerts.restore(id); },
                      .redo = [&alerts, id] { alerts.remove(id); },
                      .notice = RuleChanges::tr("Removed %1.").arg(name)});
}

QString ruleText(const DeskStores& stores, const kit::AlertRule& rule) {
    std::string beat;
    if (const auto* stories = std::get_if<kit::StoriesTrigger>(&rule.trigger);
        stories && stories->beat) {
        const auto* entry = stores.newsrooms.beats().find(*stories->beat);
        beat = entry ? entry->name : std::string();
    }
    const auto trigger = kit::alertTriggerText(rule.trigger, beat);
    const auto how = kit::alertDeliveryText(rule.delivery);
    return titleText(how.empty() ? trigger : trigger + " (" + how + ")", kExcerptCharacters);
}

}  // namespace app
