#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Alerts/AlertEvent.h"
#include "NewsroomKit/Alerts/AlertPipeline.h"
#include "NewsroomKit/Alerts/AlertRule.h"
#include "NewsroomKit/Alerts/PhraseIndex.h"

namespace kit {

/// Rules prepared for testing many events together: the texts of an event are folded once and
/// searched once, however many rules there are. Prices are judged elsewhere.
class AlertRuleSet {
public:
    /// The query of a beat; nothing when there is no such beat.
    using QueryOfBeat = std::function<std::optional<StoryQuery>(const std::string& id)>;
    /// The stories that tell the same news and are there already, the asked one among them.
    using ClusterOf = std::function<std::vector<const Story*>(const Story& story)>;

    /// Rules that are off match nothing.
    AlertRuleSet(const std::vector<AlertRule>& rules, const QueryOfBeat& queryOfBeat);

    /// What the rules match in the order of the rules. An event that is no news matches nothing.
    std::vector<AlertMatch> matches(const AlertEvent& event, const ClusterOf& clusterOf) const;

private:
    struct Rule {
        AlertRule rule{};
        bool matchesNothing = false;     ///< off, of a beat that is gone, or of a price
        std::vector<std::size_t> any{};  ///< numbers of phrases
        std::vector<std::size_t> excluded{};
        StoryQuery query{};  ///< of stories
        std::set<std::string, std::less<>> sources{};
    };
    using Mentions = std::vector<bool>;

    void prepare(Rule& rule, const StoriesTrigger& trigger, const QueryOfBeat& queryOfBeat);
    void prepare(Rule& rule, const SignalsTrigger& trigger);
    std::vector<std::size_t> numbersOf(const std::vector<std::string>& terms);

    Mentions mentionsOf(const Story& story) const;
    Mentions mentionsOf(const Signal& signal) const;
    static bool admits(const Rule& rule, const Mentions& mentions);
    static bool wants(const Rule& rule, const Story& story, const Mentions& mentions);
    static bool wants(const Rule& rule, const Signal& signal, const Mentions& mentions);
    bool hasEnoughOutlets(const Rule& rule, const Story& story, const ClusterOf& clusterOf,
                          AlertMatch& match) const;
    AlertMatch matchOf(const Rule& rule, const AlertEvent& event, const Mentions& mentions) const;

    std::vector<Rule> rules_;
    PhraseIndex phrases_;
};

}  // namespace kit
