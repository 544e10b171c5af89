#include "Tarnwick_Brell/Alerts/PriceRules.h"

#include <algorithm>

namespace app {

namespace {

const kit::PriceTrigger& priceOf(const kit::AlertRule& rule) {
    return std::get<kit::PriceTrigger>(rule.trigger);
}

}  // namespace

void PriceRules::setRules(const std::vector<kit::AlertRule>& rules) {
    std::map<std::string, Watched, std::less<>> watched;
    for (const auto& rule : rules) {
        if (!std::holds_alternative<kit::PriceTrigger>(rule.trigger)) continue;
        Watched one{.rule = rule};
        const auto before = watched_.find(rule.id);
        const auto restored = restored_.find(rule.id);
        // A rule that was off has missed prices: what it knew is no baseline any more.
        if (before != watched_.end() && before->second.rule.on == rule.on &&
            priceOf(before->second.rule) == priceOf(rule)) {
            one.state = before->second.state;
        } else if (restored != restored_.end() && restored->second.first == priceOf(rule)) {
            one.state = restored->second.second;
        }
        watched.emplace(rule.id, std::move(one));
    }
    restored_.clear();
    watched_ = std::move(watched);
}

std::vector<std::string> PriceRules::symbols() const {
    std::vector<std::string> symbols;
    for (const auto& [id, watched] : watched_) {
        const auto& symbol = priceOf(watched.rule).symbol;
        if (watched.rule.on && std::ranges::find(symbols, symbol) == symbols.end())
            symbols.push_back(symbol);
    }
    return symbols;
}

std::vector<PriceRules::Fired> PriceRules::see(const kit::StockQuote& quote, kit::Instant seenAt) {
    std::vector<Fired> fired;
    for (auto& [id, watched] : watched_) {
        const auto& trigger = priceOf(watched.rule);
        if (!watched.rule.on || trigger.symbol != quote.symbol) continue;
        kit::PriceWatch watch(trigger.symbol, trigger.condition, watched.state);
        auto outcome = watch.see(quote, seenAt);
        watched.state = watch.state();
        if (outcome.firing) fired.push_back({watched.rule, *std::move(outcome.firing)});
    }
    return fired;
}

std::string PriceRules::state() const {
    kit::json::object states;
    for (const auto& [id, watched] : watched_) {
        if (!watched.rule.on) continue;
        states[id] = {{"trigger", kit::encode(watched.rule.trigger)},
                      {"state", kit::encode(watched.state)}};
    }
    return kit::json::serialize(states);
}

void PriceRules::restore(std::string_view state) {
    try {
        const auto parsed = kit::parseJSON(state);
        if (!parsed.is_object()) return;
        for (const auto& [id, value] : parsed.get_object()) {
            if (!value.is_object()) continue;
            const auto& object = value.get_object();
            if (!object.contains("trigger") || !object.contains("state")) continue;
            const auto trigger = kit::decode<kit::AlertTrigger>(object.at("trigger"));
            if (const auto* price = std::get_if<kit::PriceTrigger>(&trigger)) {
                restored_[std::string(id)] = {*price,
                                              kit::decode<kit::PriceState>(object.at("state"))};
            }
        }
    } catch (const kit::RecordError&) {
        restored_.clear();
    }
}

}  // namespace app
