#include "Tarnwick_Brell/Models/Alerts/WhyToldModel.h"

#include <algorithm>

#include "NewsroomKit/Alerts/AlertRuleText.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Models/Alerts/RuleChanges.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

QString alertSentence(const StoredAlert& alert, kit::Instant now) {
    const auto rule = titleText(alert.ruleName);
    const auto when = momentText(alert.toldAt.value_or(alert.matchedAt), now);
    switch (alert.outcome) {
        case AlertOutcome::notified: return WhyToldModel::tr("Told by “%1”, %2").arg(rule, when);
        case AlertOutcome::quiet: return WhyToldModel::tr("Noted by “%1”, %2").arg(rule, when);
        case AlertOutcome::held: return WhyToldModel::tr("Held back for “%1”, %2").arg(rule, when);
        case AlertOutcome::summarised:
            return WhyToldModel::tr("Told by “%1” in a summary, %2").arg(rule, when);
    }
    return {};
}

}  // namespace

WhyToldModel::WhyToldModel(const DeskStores& stores, QObject* parent)
    : QObject(parent), stores_(stores) {
    connect(&stores.alerts, &AlertStore::logChanged, this, &WhyToldModel::update);
    connect(&stores.alerts, &AlertStore::rulesChanged, this, &WhyToldModel::update);
}

void WhyToldModel::setEvent(const std::string& event) {
    if (event == event_) return;
    event_ = event;
    update();
}

void WhyToldModel::update() {
    text_.clear();
    rule_.reset();
    const auto& log = stores_.alerts.log().newest;
    const auto alert = std::ranges::find(log, event_, &StoredAlert::event);
    if (!event_.empty() && alert != log.end()) {
        text_ = alertSentence(*alert, stores_.clock());
        if (!alert->words.empty()) {
            QStringList words;
            for (const auto& word : alert->words) words << titleText(word);
            text_ = tr("%1, for “%2”").arg(text_, words.join(tr("”, “")));
        }
        text_ += u'.';
        const auto* entry = stores_.alerts.rules().find(alert->rule);
        if (entry && entry->value && entry->value->on) rule_ = entry->value;
    }
    emit changed();
}

QString WhyToldModel::lessText() const {
    if (!rule_ || !kit::withHigherLeast(*rule_)) return {};
    return std::holds_alternative<kit::SignalsTrigger>(rule_->trigger)
               ? tr("Less of this: only what weighs more")
               : tr("Less of this: only what is sourced more firmly");
}

void WhyToldModel::editRule() {
    if (rule_) emit sheetWanted(QStringLiteral("alert-rule:") + QString::fromStdString(rule_->id));
}

void WhyToldModel::lessOfThis() {
    if (!rule_) return;
    if (const auto narrower = kit::withHigherLeast(*rule_)) putRule(stores_, *narrower);
}

void WhyToldModel::turnOff() {
    if (!rule_) return;
    auto rule = *rule_;
    rule.on = false;
    putRule(stores_, rule);
}

}  // namespace app
