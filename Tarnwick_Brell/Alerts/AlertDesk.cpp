#include "Tarnwick_Brell/Alerts/AlertDesk.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Alerts/QuietSettings.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

using namespace std::chrono_literals;
using kit::AlertEvent;
using kit::AlertMatch;
using kit::AlertTelling;

namespace {

/// Clocks jump and computers sleep, so what is due is looked for instead of waited for.
constexpr auto kLookForDue = 5s;
/// Nobody has looked for so long.
constexpr auto kAsleep = 2min;

constexpr std::chrono::hours kJoinsFor{72};
constexpr std::size_t kMostRecent = 2'000;
constexpr std::size_t kTitlesInSummary = 3;

NotificationTarget activityPage() {
    return {.kind = NotificationTarget::Kind::page, .id = "activity"};
}

std::string titlesOf(const std::vector<AlertMatch>& matches) {
    std::string text;
    const auto shown = std::min(matches.size(), kTitlesInSummary);
    for (std::size_t i = 0; i < shown; ++i) text += matches[i].title + "\n";
    if (matches.size() > shown) text += fmt::format("and {} more", matches.size() - shown);
    return text;
}

AlertOutcome outcomeOf(AlertTelling::How how) {
    return how == AlertTelling::How::quiet ? AlertOutcome::quiet : AlertOutcome::notified;
}

}  // namespace

AlertDesk::AlertDesk(Stores stores, Post post)
    : stores_(std::move(stores)), post_(std::move(post)) {
    due_.setInterval(kLookForDue);
    connect(&due_, &QTimer::timeout, this, &AlertDesk::tellWhatIsDue);
    connect(&stores_.alerts, &AlertStore::rulesChanged, this, &AlertDesk::prepareRules);
    connect(&stores_.newsrooms, &NewsroomStore::beatsChanged, this, &AlertDesk::prepareRules);
    connect(&stores_.news, &NewsDesk::clustersChanged, this, &AlertDesk::followClusters);
}

/// Runs it now, or once the rules have been read.
void AlertDesk::whenLoaded(std::function<void()> work) {
    if (rules_) return work();
    waiting_.push_back(std::move(work));
    if (waiting_.size() == 1) stores_.alerts.load();
}

void AlertDesk::prepareRules() {
    if (!stores_.alerts.isLoaded()) return;
    if (!rules_) {
        const auto memory = stores_.alerts.takeMemory();
        try {
            if (!memory.delivery.empty())
                pipeline_ = kit::AlertPipeline(
                    kit::decode<kit::AlertPipeline::State>(kit::parseJSON(memory.delivery)));
        } catch (const kit::RecordError& error) {
            kit::log(kit::LogCategory::notifications, kit::LogLevel::warning,
                     "what was held back can't be read: {}", error.what());
        }
        for (const auto& [rule, event] : memory.matched) pipeline_.remember(rule, event);
        prices_.restore(memory.prices);
        due_.start();
    }
    const auto queryOf = [this](const std::string& id) -> std::optional<kit::StoryQuery> {
        const auto* entry = stores_.newsrooms.beats().find(id);
        return entry && entry->value ? std::optional(entry->value->query) : std::nullopt;
    };
    const auto rules = stores_.alerts.evaluatedRules();
    std::map<std::string, kit::AlertRule, std::less<>> known;
    for (const auto& rule : rules) {
        const auto former = known_.find(rule.id);
        const bool isChanged = former == known_.end() || former->second != rule;
        if (rules_ && isChanged) changedAt_[rule.id] = stores_.clock();
        known.emplace(rule.id, rule);
    }
    known_ = std::move(known);
    dropHeldOfStopped();
    rules_ = std::make_unique<kit::AlertRuleSet>(rules, queryOf);
    prices_.setRules(rules);
    emit symbolsWanted(prices_.symbols());
    for (const auto& work : std::exchange(waiting_, {})) work();
}

/// What is held for rules that have been removed or switched off, also before this run.
void AlertDesk::dropHeldOfStopped() {
    std::set<std::string> stopped;
    for (const auto& held : pipeline_.held()) {
        const auto& rule = held.match.rule;
        const auto known = known_.find(rule);
        const bool isBuiltIn = rule.find('|') != std::string::npos;
        if (!isBuiltIn && (known == known_.end() || !known->second.on)) stopped.insert(rule);
    }
    for (const auto& [id, rule] : known_) {
        if (!rule.on) stopped.insert(id);
    }
    for (const auto& rule : stopped) pipeline_.dropHeld(rule);
}

void AlertDesk::takeStories(const std::vector<kit::Story>& news) {
    whenLoaded([this, news] {
        const auto now = stores_.clock();
        std::erase_if(recent_, [&](const AlertEvent& event) { return event.at + kJoinsFor < now; });
        for (auto story = news.rbegin(); story != news.rend(); ++story) {
            recent_.push_back({.at = now, .subject = *story});
            takeEvent(recent_.back());
        }
        while (recent_.size() > kMostRecent) recent_.pop_front();
        store();
    });
}

void AlertDesk::takeSignals(const std::vector<kit::Signal>& logged) {
    whenLoaded([this, logged] {
        for (const auto& signal : logged) takeEvent({.at = stores_.clock(), .subject = signal});
        store();
    });
}

void AlertDesk::takeQuote(const kit::StockQuote& quote, kit::Instant seenAt) {
    whenLoaded([this, quote, seenAt] {
        for (const auto& [rule, firing] : prices_.see(quote, seenAt)) {
            const auto now = stores_.clock();
            const auto event = fmt::format("price|{}|{}", rule.id, kit::decimalSeconds(now));
            take({.match = {.rule = rule.id,
                            .event = event,
                            .title = firing.sentence,
                            .at = now,
                            .delivery = rule.delivery},
                  .ruleName = rule.name,
                  .notification = {
                      .identifier = fmt::format("rule-{}", event),
                      .title = firing.sentence,
                      .body = rule.name,
                      .target = NotificationTarget{.kind = NotificationTarget::Kind::tracker,
                                                   .id = "markets"},
                      .withSound = rule.delivery.sound}});
        }
        outcome_.prices = prices_.state();
        store();
    });
}

void AlertDesk::take(AskedNotification asked) {
    whenLoaded([this, asked = std::move(asked)] {
        askers_[asked.asker.id] = asked.asker.name;
        const kit::AlertDelivery delivery{.sound = asked.notification.withSound};
        take({.match = {.rule = asked.asker.id,
                        .event = asked.event,
                        .title = asked.notification.title,
                        .at = stores_.clock(),
                        .delivery = delivery},
              .ruleName = asked.asker.name,
              .notification = asked.notification});
        store();
    });
}

/// A cluster may be found only after its stories have come: rules that count outlets look again.
/// What a rule has matched is not told anew.
void AlertDesk::followClusters() {
    if (!rules_) return;
    const bool isCounting = std::ranges::any_of(known_, [](const auto& known) {
        const auto* stories = std::get_if<kit::StoriesTrigger>(&known.second.trigger);
        return stories && stories->outlets.value_or(1) > 1;
    });
    if (!isCounting) return;
    for (const auto& event : recent_) takeEvent(event);
    store();
}

std::vector<const kit::Story*> AlertDesk::clusterOf(const kit::Story& story) {
    members_.clear();
    std::vector<const kit::Story*> found{&story};
    if (!stores_.news.clusters()) return found;
    for (const auto& cluster : *stores_.news.clusters()) {
        if (std::ranges::find(cluster.storyIDs, story.id) == cluster.storyIDs.end()) continue;
        for (const auto& id : cluster.storyIDs) {
            const auto* packed = id == story.id ? nullptr : stores_.news.stories().find(id);
            if (!packed) continue;
            members_.push_back(packed->unpacked().story);
            found.push_back(&members_.back());
        }
        break;
    }
    return found;
}

void AlertDesk::takeEvent(const AlertEvent& event) {
    const auto cluster = [this](const kit::Story& story) { return clusterOf(story); };
    for (auto& match : rules_->matches(event, cluster)) {
        // A rule tells of what came after it was made.
        const auto changed = changedAt_.find(match.rule);
        if (changed != changedAt_.end() && event.at < changed->second) continue;
        match.at = stores_.clock();
        take(candidateOf(std::move(match), event));
    }
}

AlertDesk::Candidate AlertDesk::candidateOf(AlertMatch match, const AlertEvent& event) const {
    const auto& rule = known_.find(match.rule)->second;
    const auto* story = std::get_if<kit::Story>(&event.subject);
    auto notification =
        story ? Alerts::ofStory(*story) : Alerts::ofSignal(std::get<kit::Signal>(event.subject));
    notification.identifier = fmt::format("rule-{}-{}", rule.id, match.event);
    notification.title = rule.name + ": " + notification.title;
    notification.withSound = rule.delivery.sound;
    return {
        .match = std::move(match), .ruleName = rule.name, .notification = std::move(notification)};
}

/// For telling now, by the settings as they are and after any sleep.
void AlertDesk::beReady() {
    pipeline_.setQuiet(quietOf(stores_.defaults));
    const auto now = stores_.clock();
    if (const auto due = pipeline_.nextDue(); due && now - *due > kAsleep) pipeline_.resume(now);
}

void AlertDesk::take(Candidate candidate) {
    const auto& match = candidate.match;
    const bool wasMatched = pipeline_.hasMatched(match.rule, match.event);
    beReady();
    const auto told = pipeline_.take(match);
    if (!wasMatched && pipeline_.hasMatched(match.rule, match.event)) {
        outcome_.matched.push_back({.rule = match.rule,
                                    .ruleName = candidate.ruleName,
                                    .event = match.event,
                                    .title = match.title,
                                    .link = candidate.notification.link,
                                    .words = match.words,
                                    .matchedAt = match.at});
    }
    tell(told, &candidate);
}

/// `candidate` is the match that was just taken, if any: only it can be told by itself.
void AlertDesk::tell(const std::vector<AlertTelling>& told, const Candidate* candidate) {
    const auto now = stores_.clock();
    for (const auto& telling : told) {
        if (telling.how == AlertTelling::How::summary) {
            for (const auto& match : telling.matches)
                outcome_.settled.push_back(
                    {.rule = match.rule, .event = match.event, .toldAt = now});
            post_(summaryOf(telling));
            continue;
        }
        auto& stored = outcome_.matched.back();
        stored.outcome = outcomeOf(telling.how);
        stored.toldAt = now;
        if (telling.how == AlertTelling::How::notified) post_(candidate->notification);
    }
}

void AlertDesk::tellWhatIsDue() {
    if (!pipeline_.nextDue()) return;
    beReady();
    tell(pipeline_.advance(stores_.clock()), nullptr);
    store();
}

void AlertDesk::store() {
    if (outcome_.matched.empty() && outcome_.settled.empty() &&
        outcome_.prices.value_or(storedPrices_) == storedPrices_) {
        outcome_ = {};
        return;
    }
    storedPrices_ = outcome_.prices.value_or(storedPrices_);
    outcome_.delivery = kit::json::serialize(kit::encode(pipeline_.state()));
    stores_.alerts.record(std::exchange(outcome_, {}));
}

std::string AlertDesk::nameOf(const std::string& rule) const {
    if (const auto known = known_.find(rule); known != known_.end()) return known->second.name;
    const auto asker = askers_.find(rule);
    return asker == askers_.end() ? std::string() : asker->second;
}

Notification AlertDesk::summaryOf(const AlertTelling& telling) const {
    const auto& matches = telling.matches;
    std::set<std::string> rules;
    for (const auto& match : matches) rules.insert(match.rule);
    const auto name = rules.size() == 1 ? nameOf(*rules.begin()) : std::string();
    const bool isOne = matches.size() == 1;
    const auto what = isOne ? matches.front().title : fmt::format("{} alerts", matches.size());
    return {.identifier = "summary-" + kit::decimalSeconds(telling.at),
            .title = name.empty() || (isOne && matches.front().title.starts_with(name))
                         ? what
                         : name + ": " + what,
            .body = isOne ? std::string() : titlesOf(matches),
            .target = activityPage(),
            .withSound = std::ranges::any_of(
                matches, [](const AlertMatch& match) { return match.delivery.sound; })};
}

}  // namespace app
