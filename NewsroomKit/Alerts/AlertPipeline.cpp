#include "NewsroomKit/Alerts/AlertPipeline.h"

#include <algorithm>
#include <iterator>

namespace kit {

using std::chrono::minutes;
using Why = HeldAlert::Why;

void AlertPipeline::remember(std::string_view rule, std::string_view event) {
    matched_[std::string(rule)].emplace(event);
}

bool AlertPipeline::hasMatched(std::string_view rule, std::string_view event) const {
    const auto events = matched_.find(rule);
    return events != matched_.end() && events->second.contains(event);
}

AlertPipeline::State::Rule& AlertPipeline::ruleState(std::string_view id) {
    const auto known = std::ranges::find(state_.rules, id, &State::Rule::id);
    if (known != state_.rules.end()) return *known;
    state_.rules.push_back({.id = std::string(id)});
    return state_.rules.back();
}

bool AlertPipeline::isNew(const AlertMatch& match) const {
    return !hasMatched(match.rule, match.event) &&
           std::ranges::none_of(match.sameAs, [&](const std::string& event) {
               return hasMatched(match.rule, event);
           });
}

/// One quiet time may end within another: the end of the last one.
std::optional<Instant> AlertPipeline::quietEnd(const AlertDelivery& delivery, Instant at) const {
    auto end = nextQuietEnd(delivery, at);
    while (end) {
        const auto later = nextQuietEnd(delivery, *end);
        if (!later) break;
        end = later;
    }
    return end;
}

std::optional<Instant> AlertPipeline::nextQuietEnd(const AlertDelivery& delivery,
                                                   Instant at) const {
    std::optional<Instant> end;
    if (quiet_.until && at < *quiet_.until) end = quiet_.until;
    if (delivery.respectsQuietHours && quiet_.hours) {
        if (const auto hours = quiet_.hours->endAfter(at); hours && (!end || *hours > *end))
            end = hours;
    }
    return end;
}

/// The end of the hour, when no more may be told in it.
std::optional<Instant> AlertPipeline::capEnd(Instant at) {
    if (state_.hourBegan && at >= *state_.hourBegan + kHour) {
        state_.hourBegan.reset();
        state_.toldInHour = 0;
    }
    if (state_.toldInHour < static_cast<std::int64_t>(kMostAnHour)) return std::nullopt;
    return *state_.hourBegan + kHour;
}

void AlertPipeline::countNotification(Instant at) {
    if (!state_.hourBegan) state_.hourBegan = at;
    ++state_.toldInHour;
}

std::optional<AlertPipeline::Hold> AlertPipeline::holdOf(const AlertMatch& match) {
    if (const auto end = quietEnd(match.delivery, match.at)) return Hold{Why::quietHours, *end};
    const auto& last = ruleState(match.rule).lastTold;
    if (match.delivery.minutes && last) {
        const auto next = *last + minutes(*match.delivery.minutes);
        if (match.at < next) return Hold{Why::minutes, next};
    }
    if (const auto end = capEnd(match.at)) return Hold{Why::cap, *end};
    return std::nullopt;
}

void AlertPipeline::hold(AlertMatch match, Hold hold, Instant at) {
    match.sameAs.clear();  // has served, and would be stored with the state
    nextDue_ = std::min(nextDue_.value_or(hold.until), hold.until);
    state_.held.push_back(
        {.match = std::move(match), .why = hold.why, .since = at, .until = hold.until});
}

std::vector<AlertTelling> AlertPipeline::take(AlertMatch match) {
    auto told = advance(match.at);
    const auto& delivery = match.delivery;
    if (!isNew(match) || (delivery.expires && match.at >= *delivery.expires)) return told;
    auto& rule = ruleState(match.rule);
    if (delivery.once && rule.isUsedUp) return told;
    rule.isUsedUp = delivery.once;
    remember(match.rule, match.event);
    if (delivery.how == AlertDelivery::How::quiet) {
        const auto at = match.at;
        told.push_back({AlertTelling::How::quiet, at, {std::move(match)}});
        return told;
    }
    const auto at = match.at;
    if (const auto held = holdOf(match)) {
        hold(std::move(match), *held, at);
        return told;
    }
    ruleState(match.rule).lastTold = at;
    countNotification(at);
    told.push_back({AlertTelling::How::notified, at, {std::move(match)}});
    return told;
}

std::vector<AlertTelling> AlertPipeline::advance(Instant now) {
    followClock(now);
    std::vector<AlertTelling> told;
    while (nextDue_ && *nextDue_ <= now)
        std::ranges::move(tellDue(*nextDue_), std::back_inserter(told));
    return told;
}

void AlertPipeline::findNextDue() {
    const auto first = std::ranges::min_element(state_.held, {}, &HeldAlert::until);
    nextDue_ = first == state_.held.end() ? std::nullopt : std::optional(first->until);
}

AlertTelling AlertPipeline::summaryOf(std::vector<AlertMatch> matches, Instant at) {
    for (const auto& match : matches) ruleState(match.rule).lastTold = at;
    return {AlertTelling::How::summary, at, std::move(matches)};
}

/// What is due at that moment, and goes on being held if that is no better a moment: quiet hours
/// may have begun. What was held by quiet hours or by the cap is one summary; each rule that has
/// waited by itself is one more, which counts as a notification.
std::vector<AlertTelling> AlertPipeline::tellDue(Instant at) {
    const auto rest = std::ranges::stable_partition(
        state_.held, [&](const HeldAlert& held) { return held.until > at; });
    std::vector<HeldAlert> due(std::make_move_iterator(rest.begin()),
                               std::make_move_iterator(rest.end()));
    state_.held.erase(rest.begin(), rest.end());
    findNextDue();

    std::vector<AlertMatch> together;
    std::vector<std::pair<std::string, std::vector<AlertMatch>>> byRule;
    for (auto& [match, why, since, until] : due) {
        if (const auto end = quietEnd(match.delivery, at)) {
            hold(std::move(match), {Why::quietHours, *end}, at);
        } else if (why != Why::minutes) {
            together.push_back(std::move(match));
        } else {
            auto group = std::ranges::find(byRule, match.rule, [](auto& one) { return one.first; });
            if (group == byRule.end()) group = byRule.insert(byRule.end(), {match.rule, {}});
            group->second.push_back(std::move(match));
        }
    }
    std::vector<AlertTelling> told;
    if (!together.empty()) told.push_back(summaryOf(std::move(together), at));
    for (auto& [rule, matches] : byRule) {
        if (const auto end = capEnd(at)) {
            for (auto& match : matches) hold(std::move(match), {Why::cap, *end}, at);
            continue;
        }
        countNotification(at);
        told.push_back(summaryOf(std::move(matches), at));
    }
    return told;
}

/// Moves what lies in a future that is to come again: the clock has been set back.
void AlertPipeline::followClock(Instant now) {
    const bool wasSetBack = !clock_ || now < *clock_;
    clock_ = now;
    if (!wasSetBack) return;
    for (auto& rule : state_.rules) {
        if (rule.lastTold && *rule.lastTold > now) rule.lastTold = now;
    }
    for (auto& held : state_.held) {
        if (held.since <= now) continue;
        held.until -= held.since - now;
        held.since = now;
    }
    if (state_.hourBegan && *state_.hourBegan > now) state_.hourBegan = now;
    findNextDue();
}

void AlertPipeline::resume(Instant now) {
    for (auto& held : state_.held) held.until = std::max(held.until, now);
    findNextDue();
}

void AlertPipeline::dropHeld(std::string_view rule) {
    std::erase_if(state_.held, [&](const HeldAlert& held) { return held.match.rule == rule; });
    findNextDue();
    const auto known = std::ranges::find(state_.rules, rule, &State::Rule::id);
    if (known != state_.rules.end()) known->isUsedUp = false;
}

}  // namespace kit
