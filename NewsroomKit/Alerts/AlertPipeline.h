#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NewsroomKit/Alerts/AlertRule.h"
#include "NewsroomKit/Alerts/QuietHours.h"
#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// An event that a rule matched. Also what is matched elsewhere (by a setting, a panel, a price)
/// is told through these.
struct AlertMatch {
    std::string rule{};   ///< id
    std::string event{};  ///< its key, which is told once for each rule
    std::string title{};
    std::vector<std::string> words{};  ///< of the rule, as folded
    Instant at{};
    AlertDelivery delivery{};
    /// Keys of events that tell the same: when the rule has told one of them, it is silent.
    std::vector<std::string> sameAs{};

    bool operator==(const AlertMatch&) const = default;
};

/// What is told at one moment.
struct AlertTelling {
    enum class How {
        notified,
        quiet,   ///< in the history only
        summary  ///< of what was held back, of one rule or of several
    };

    How how = How::notified;
    Instant at{};
    std::vector<AlertMatch> matches{};

    bool operator==(const AlertTelling&) const = default;
};

/// A match that waits to be told.
struct HeldAlert {
    enum class Why {
        minutes,  ///< the rule tells at most once in so many
        quietHours,
        cap  ///< too much has been told in this hour
    };

    AlertMatch match{};
    Why why = Why::minutes;
    Instant since{};
    Instant until{};

    bool operator==(const HeldAlert&) const = default;
};

/// When nothing may be told.
struct AlertQuiet {
    std::optional<QuietHours> hours{};
    std::optional<Instant> until{};  ///< by the user's word, for all rules
};

/// Decides when matches are told: the one way to the user for everything that the desk tells. Time
/// is what it is given, so that what it says of the past and of the present is the same. A clock
/// that is set back neither tells again nor holds for longer than before.
class AlertPipeline {
public:
    /// Notifications of an hour, which begins with the first; what comes then is told as one
    /// summary at its end.
    static constexpr std::size_t kMostAnHour = 20;
    static constexpr std::chrono::hours kHour{1};

    /// What must outlive a run, besides which events each rule has told.
    struct State {
        struct Rule {
            std::string id{};
            std::optional<Instant> lastTold{};
            bool isUsedUp = false;
            bool operator==(const Rule&) const = default;
        };
        std::vector<Rule> rules{};
        std::vector<HeldAlert> held{};
        std::optional<Instant> hourBegan{};
        std::int64_t toldInHour = 0;

        bool operator==(const State&) const = default;
    };

    AlertPipeline() = default;
    explicit AlertPipeline(State state) : state_(std::move(state)) { findNextDue(); }

    void setQuiet(AlertQuiet quiet) { quiet_ = std::move(quiet); }

    /// The rule has matched the event in an earlier run.
    void remember(std::string_view rule, std::string_view event);
    bool hasMatched(std::string_view rule, std::string_view event) const;

    /// What is told when the match comes, after what has become due by then. A match that has been
    /// told before, that comes after its rule has expired or is used up, is dropped.
    std::vector<AlertTelling> take(AlertMatch match);

    /// What has become due.
    std::vector<AlertTelling> advance(Instant now);
    std::optional<Instant> nextDue() const { return nextDue_; }

    /// The computer has slept until now: what became due meanwhile is due now, when it may be
    /// quiet.
    void resume(Instant now);

    /// The user has removed the rule or switched it off: drops what is held for it. When it is
    /// switched on again it is not used up.
    void dropHeld(std::string_view rule);

    const State& state() const { return state_; }
    const std::vector<HeldAlert>& held() const { return state_.held; }

private:
    struct Hold {
        HeldAlert::Why why;
        Instant until;
    };

    State::Rule& ruleState(std::string_view id);
    bool isNew(const AlertMatch& match) const;
    std::optional<Instant> quietEnd(const AlertDelivery& delivery, Instant at) const;
    std::optional<Instant> nextQuietEnd(const AlertDelivery& delivery, Instant at) const;
    std::optional<Instant> capEnd(Instant at);
    std::optional<Hold> holdOf(const AlertMatch& match);
    void hold(AlertMatch match, Hold hold, Instant at);
    void countNotification(Instant at);
    AlertTelling summaryOf(std::vector<AlertMatch> matches, Instant at);
    std::vector<AlertTelling> tellDue(Instant at);
    void followClock(Instant now);
    void findNextDue();

    State state_;
    std::optional<Instant> nextDue_;  ///< the earliest end of what is held
    std::optional<Instant> clock_;    ///< as given last in this run
    AlertQuiet quiet_;
    std::map<std::string, std::set<std::string, std::less<>>, std::less<>> matched_;
};

template <>
inline constexpr std::array<EnumRow<AlertTelling::How>, 3> enumTable<AlertTelling::How>{{
    {AlertTelling::How::notified, "notified", "Notified"},
    {AlertTelling::How::quiet, "quiet", "Quiet"},
    {AlertTelling::How::summary, "summary", "Summary"},
}};

template <>
inline constexpr std::array<EnumRow<HeldAlert::Why>, 3> enumTable<HeldAlert::Why>{{
    {HeldAlert::Why::minutes, "minutes", "At most one in some minutes"},
    {HeldAlert::Why::quietHours, "quietHours", "Quiet hours"},
    {HeldAlert::Why::cap, "cap", "At most 20 an hour"},
}};

template <>
struct JSONFields<AlertMatch> {
    static constexpr auto fields = std::tuple{
        field("rule", &AlertMatch::rule),     field("event", &AlertMatch::event),
        field("title", &AlertMatch::title),   field("words", &AlertMatch::words),
        field("at", &AlertMatch::at),         field("delivery", &AlertMatch::delivery),
        field("sameAs", &AlertMatch::sameAs),
    };
};

template <>
struct JSONFields<HeldAlert> {
    static constexpr auto fields =
        std::tuple{field("match", &HeldAlert::match), field("why", &HeldAlert::why),
                   field("since", &HeldAlert::since), field("until", &HeldAlert::until)};
};

template <>
struct JSONFields<AlertPipeline::State::Rule> {
    static constexpr auto fields =
        std::tuple{field("id", &AlertPipeline::State::Rule::id),
                   field("lastTold", &AlertPipeline::State::Rule::lastTold),
                   field("usedUp", &AlertPipeline::State::Rule::isUsedUp)};
};

template <>
struct JSONFields<AlertPipeline::State> {
    static constexpr auto fields = std::tuple{
        field("rules", &AlertPipeline::State::rules), field("held", &AlertPipeline::State::held),
        field("hourBegan", &AlertPipeline::State::hourBegan),
        field("toldInHour", &AlertPipeline::State::toldInHour)};
};

}  // namespace kit
