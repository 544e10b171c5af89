#include "Tarnwick_Brell/Alerts/AlertStore.h"

#include <stdexcept>
#include <utility>

#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

using WorkerContext = DeskWorker::WorkerContext;

AlertLog readAlertLog(LocalStore& store, kit::Instant now) {
    auto& history = store.alerts();
    const auto looked = store.state().number(DeskState::kLookedAtAlert).value_or(0);
    return {.newest = history.newest(AlertLog::kMostShown),
            .counts = history.countsSince(now - AlertLog::kCounted),
            .untold = history.countUntoldAfter(looked)};
}

AlertStore::AlertStore(DeskWorker& worker, kit::Clock clock)
    : worker_(worker), clock_(std::move(clock)), queue_(std::make_shared<MainThreadQueue>()) {}

// Jobs in flight continue; their results are dropped.
AlertStore::~AlertStore() { queue_->close(); }

void AlertStore::load(std::function<void()> then) {
    const auto read = [this, queue = queue_, changesThen = changes_, then, isFirst = !isLoaded_,
                       now = clock_()](WorkerContext& context) {
        auto rules = AlertRuleRecords::read(context.store.alertRules());
        auto log = readAlertLog(context.store, now);
        Memory memory;
        if (isFirst) {
            memory = {
                .delivery = context.store.state().text(DeskState::kAlertDelivery).value_or(""),
                .prices = context.store.state().text(DeskState::kPriceRules).value_or(""),
                .matched = context.store.alerts().matched()};
        }
        queue->send([this, isFirst, changesThen, then, rules = std::move(rules),
                     log = std::move(log), memory = std::move(memory)] {
            // What has changed here since then is newer than this reading.
            if (changesThen != changes_) return load(then);
            const bool isUnread = !std::exchange(isLoaded_, true);
            const bool areRulesNew = isUnread || rules != rules_;
            rules_ = rules;
            log_ = log;
            // Only this program delivers: what it remembers itself is never older.
            if (isUnread && isFirst) memory_ = memory;
            if (areRulesNew) emit rulesChanged();
            emit logChanged();
            if (then) then();
        });
    };
    worker_.post(read, [this, queue = queue_, then](const std::exception& error) {
        queue->send([this, text = QString::fromUtf8(error.what()), then] {
            emit failed(text);
            if (then) then();
        });
    });
}

std::vector<kit::AlertRule> AlertStore::evaluatedRules() const {
    std::vector<kit::AlertRule> rules;
    for (const auto& entry : rules_.entries()) {
        if (entry.value && rules.size() < kit::kMostAlertRules) rules.push_back(*entry.value);
    }
    return rules;
}

void requireRoomForRule(const AlertRuleRecords& rules) {
    if (rules.entries().size() < kit::kMostAlertRules) return;
    throw std::length_error("There are " + std::to_string(kit::kMostAlertRules) +
                            " rules already, which is the most that are possible.");
}

void AlertStore::put(kit::AlertRule rule) {
    if (!rules_.find(rule.id)) requireRoomForRule(rules_);
    change(rules_.put(std::move(rule)));
}

void AlertStore::remove(const std::string& id) { change(rules_.remove(id)); }

void AlertStore::restore(const std::string& id) { change(rules_.restore(id)); }

void AlertStore::write(Job job) {
    ++changes_;
    worker_.post(std::move(job), [this, queue = queue_](const std::exception& error) {
        queue->send([this, text = QString::fromUtf8(error.what())] {
            emit failed(text);
            load();
        });
    });
}

void AlertStore::change(const std::optional<RecordChange>& change) {
    if (!change) return;
    write([change = *change, at = clock_()](WorkerContext& context) {
        auto transaction = context.store.transaction();
        change.applyTo(context.store.alertRules(), at);
        transaction.commit();
    });
    emit rulesChanged();
}

void AlertStore::record(Outcome outcome) {
    write([outcome = std::move(outcome), at = clock_()](WorkerContext& context) {
        auto transaction = context.store.transaction();
        auto& history = context.store.alerts();
        for (const auto& alert : outcome.matched) history.add(alert);
        for (const auto& told : outcome.settled) {
            history.settle(told.rule, told.event, told.toldAt.value_or(at));
        }
        history.dropBefore(at - AlertHistory::kKept);
        context.store.state().setText(DeskState::kAlertDelivery, outcome.delivery);
        if (outcome.prices) context.store.state().setText(DeskState::kPriceRules, *outcome.prices);
        transaction.commit();
    });
    readLog();
}

void AlertStore::readLog() {
    const auto failure = [this, queue = queue_](const std::exception& error) {
        queue->send([this, text = QString::fromUtf8(error.what())] { emit failed(text); });
    };
    worker_.post(
        [this, queue = queue_, now = clock_()](WorkerContext& context) {
            queue->send([this, log = readAlertLog(context.store, now)] {
                log_ = log;
                emit logChanged();
            });
        },
        failure);
}

void AlertStore::markLookedAt() {
    if (log_.untold == 0) return;
    write([](WorkerContext& context) {
        auto transaction = context.store.transaction();
        context.store.state().setNumber(DeskState::kLookedAtAlert,
                                        context.store.alerts().lastNumber());
        transaction.commit();
    });
    log_.untold = 0;
    emit logChanged();
}

}  // namespace app
