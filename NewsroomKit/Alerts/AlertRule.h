#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "NewsroomKit/Markets/PriceCondition.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Stories/Sourcing.h"

namespace kit {

/// Fires when a story arrives as news.
struct StoriesTrigger {
    StoryQuery query{};
    std::optional<std::string> beat{};  ///< id of a beat, whose query holds instead
    std::optional<Sourcing> leastSourcing{};
    /// Fires only when so many outlets have a story of one cluster that matches.
    std::optional<std::int64_t> outlets{};

    bool operator==(const StoriesTrigger&) const = default;
};

/// Fires when a signal is logged as news.
struct SignalsTrigger {
    std::vector<SignalKind> kinds{};   ///< none: all
    std::vector<std::string> words{};  ///< one is in the title or in the subject; none: all
    std::vector<std::string> excludedWords{};
    SignalWeight leastWeight = SignalWeight::routine;

    bool operator==(const SignalsTrigger&) const = default;
};

struct PriceTrigger {
    std::string symbol{};
    PriceCondition condition{};

    bool operator==(const PriceTrigger&) const = default;
};

using AlertTrigger = std::variant<StoriesTrigger, SignalsTrigger, PriceTrigger>;

/// How the user is told.
struct AlertDelivery {
    enum class How { notify, quiet };  ///< quiet: shown in Activity only

    How how = How::notify;
    bool sound = false;
    bool respectsQuietHours = true;
    /// At most one telling in so many; what is held back is told as one summary.
    std::optional<std::int64_t> minutes{};
    std::optional<Instant> expires{};
    bool once = false;  ///< the first match uses the rule up

    bool operator==(const AlertDelivery&) const = default;
};

/// What the user wants to be told of. Reads and writes
/// {"id", "name", "on", "trigger": {"kind": "stories" | "signals" | "price", …}, "delivery": {…}}.
struct AlertRule {
    std::string id{};
    std::string name{};
    bool on = true;
    AlertTrigger trigger{};
    AlertDelivery delivery{};

    bool operator==(const AlertRule&) const = default;
};

template <>
inline constexpr std::array<EnumRow<AlertDelivery::How>, 2> enumTable<AlertDelivery::How>{{
    {AlertDelivery::How::notify, "notify", "Notify"},
    {AlertDelivery::How::quiet, "quiet", "Quiet"},
}};

/// Throws RecordError when it is over the caps, or a word, a price or a number is out of range.
template <>
struct Codec<AlertTrigger> {
    static json::value encode(const AlertTrigger& trigger, DateStyle dates);
    static AlertTrigger decode(const json::value& value);
};

inline constexpr std::size_t kMostAlertRules = 200;
inline constexpr std::size_t kMostTermsOfRule = 100;

template <>
struct JSONFields<AlertDelivery> {
    static constexpr auto fields = std::tuple{
        field("how", &AlertDelivery::how),
        field("sound", &AlertDelivery::sound),
        field("respectsQuietHours", &AlertDelivery::respectsQuietHours),
        field("minutes", &AlertDelivery::minutes),
        field("expires", &AlertDelivery::expires),
        field("once", &AlertDelivery::once),
    };
};

template <>
struct JSONFields<AlertRule> {
    static constexpr auto fields = std::tuple{
        field("id", &AlertRule::id),
        field("name", &AlertRule::name),
        field("on", &AlertRule::on),
        field("trigger", &AlertRule::trigger),
        field("delivery", &AlertRule::delivery),
    };
};

}  // namespace kit
