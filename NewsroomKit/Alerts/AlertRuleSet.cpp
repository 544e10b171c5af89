#include "NewsroomKit/Alerts/AlertRuleSet.h"

#include <algorithm>

#include "NewsroomKit/Attribution/TellingOutlet.h"

namespace kit {

namespace {

bool contains(const auto& list, const auto& value) {
    return std::ranges::find(list, value) != list.end();
}

}  // namespace

AlertRuleSet::AlertRuleSet(const std::vector<AlertRule>& rules, const QueryOfBeat& queryOfBeat) {
    for (const auto& rule : rules) {
        Rule prepared{.rule = rule, .matchesNothing = !rule.on};
        if (const auto* stories = std::get_if<StoriesTrigger>(&rule.trigger))
            prepare(prepared, *stories, queryOfBeat);
        if (const auto* signals = std::get_if<SignalsTrigger>(&rule.trigger))
            prepare(prepared, *signals);
        if (std::holds_alternative<PriceTrigger>(rule.trigger)) prepared.matchesNothing = true;
        rules_.push_back(std::move(prepared));
    }
}

/// Blank terms match nothing and would make an empty list a condition.
std::vector<std::size_t> AlertRuleSet::numbersOf(const std::vector<std::string>& terms) {
    std::vector<std::size_t> numbers;
    for (const auto& term : terms) {
        PhraseMatcher phrase(term);
        if (phrase.phrase.empty()) continue;
        const auto number = phrases_.add(std::move(phrase));
        if (!contains(numbers, number)) numbers.push_back(number);
    }
    return numbers;
}

void AlertRuleSet::prepare(Rule& rule, const StoriesTrigger& trigger,
                           const QueryOfBeat& queryOfBeat) {
    const auto query = trigger.beat ? queryOfBeat(*trigger.beat) : std::optional(trigger.query);
    if (!query) {
        rule.matchesNothing = true;
        return;
    }
    rule.query = *query;
    rule.any = numbersOf(query->anyTerms);
    rule.excluded = numbersOf(query->excludedTerms);
    rule.sources = {query->sourceIDs.begin(), query->sourceIDs.end()};
}

void AlertRuleSet::prepare(Rule& rule, const SignalsTrigger& trigger) {
    rule.any = numbersOf(trigger.words);
    rule.excluded = numbersOf(trigger.excludedWords);
}

AlertRuleSet::Mentions AlertRuleSet::mentionsOf(const Story& story) const {
    Mentions mentions(phrases_.size());
    phrases_.find(PhraseMatcher::normalize(story.title + "\n" + story.summary), mentions);
    return mentions;
}

AlertRuleSet::Mentions AlertRuleSet::mentionsOf(const Signal& signal) const {
    Mentions mentions(phrases_.size());
    phrases_.find(PhraseMatcher::normalize(signal.title), mentions);
    phrases_.find(PhraseMatcher::normalize(signal.subject), mentions);
    return mentions;
}

bool AlertRuleSet::admits(const Rule& rule, const Mentions& mentions) {
    const auto isMentioned = [&](std::size_t number) { return mentions[number]; };
    return (rule.any.empty() || std::ranges::any_of(rule.any, isMentioned)) &&
           std::ranges::none_of(rule.excluded, isMentioned);
}

bool AlertRuleSet::wants(const Rule& rule, const Story& story, const Mentions& mentions) {
    const auto* trigger = std::get_if<StoriesTrigger>(&rule.rule.trigger);
    if (!trigger || !admits(rule, mentions)) return false;
    const auto& query = rule.query;
    if (!query.includesSetAside && isSetAside(story.kind)) return false;
    if (trigger->leastSourcing && story.sourcing > *trigger->leastSourcing) return false;
    return (query.sourcings.empty() || contains(query.sourcings, story.sourcing)) &&
           (rule.sources.empty() || rule.sources.contains(story.sourceID));
}

bool AlertRuleSet::wants(const Rule& rule, const Signal& signal, const Mentions& mentions) {
    const auto* trigger = std::get_if<SignalsTrigger>(&rule.rule.trigger);
    return trigger && admits(rule, mentions) && signal.weight >= trigger->leastWeight &&
           (trigger->kinds.empty() || contains(trigger->kinds, signal.kind));
}

/// Counts the outlets whose stories match. The others of the cluster tell the same, so that the
/// match is one of all of them.
bool AlertRuleSet::hasEnoughOutlets(const Rule& rule, const Story& story,
                                    const ClusterOf& clusterOf, AlertMatch& match) const {
    const auto least = std::get<StoriesTrigger>(rule.rule.trigger).outlets.value_or(1);
    if (least <= 1) return true;
    std::set<std::string> outlets{tellingOutletKey(story)};
    for (const auto* member : clusterOf(story)) {
        if (member->id == story.id) continue;
        match.sameAs.push_back(alertKey(*member));
        if (std::ssize(outlets) >= least) continue;
        if (wants(rule, *member, mentionsOf(*member))) outlets.insert(tellingOutletKey(*member));
    }
    return std::ssize(outlets) >= least;
}

AlertMatch AlertRuleSet::matchOf(const Rule& rule, const AlertEvent& event,
                                 const Mentions& mentions) const {
    AlertMatch match{.rule = rule.rule.id,
                     .event = event.key(),
                     .title = event.title(),
                     .at = event.at,
                     .delivery = rule.rule.delivery};
    for (const auto number : rule.any) {
        if (mentions[number]) match.words.push_back(phrases_.phrase(number).phrase);
    }
    return match;
}

std::vector<AlertMatch> AlertRuleSet::matches(const AlertEvent& event,
                                              const ClusterOf& clusterOf) const {
    if (event.arrival != AlertArrival::news) return {};
    const auto* story = std::get_if<Story>(&event.subject);
    const auto* signal = std::get_if<Signal>(&event.subject);
    const auto mentions = story ? mentionsOf(*story) : mentionsOf(*signal);
    std::vector<AlertMatch> found;
    for (const auto& rule : rules_) {
        if (rule.matchesNothing) continue;
        if (!(story ? wants(rule, *story, mentions) : wants(rule, *signal, mentions))) continue;
        auto match = matchOf(rule, event, mentions);
        if (!story || hasEnoughOutlets(rule, *story, clusterOf, match))
            found.push_back(std::move(match));
    }
    return found;
}

}  // namespace kit
