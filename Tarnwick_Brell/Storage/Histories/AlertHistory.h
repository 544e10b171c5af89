#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// How the user was told of something that a rule matched.
enum class AlertOutcome {
    notified,
    quiet,      ///< in the history only, as the rule asks
    held,       ///< waits to be told
    summarised  ///< told together with others
};

/// Something that a rule matched.
struct StoredAlert {
    std::int64_t number = 0;  ///< rises as alerts are stored
    std::string rule{};       ///< id
    std::string ruleName{};   ///< as it was then
    /// What happened: "story|" or "signal|" with its id, or of a price "price|" with its rule and
    /// time.
    std::string event{};
    std::string title{};
    std::string link{};                ///< may be empty
    std::vector<std::string> words{};  ///< the rule's words that matched, folded
    kit::Instant matchedAt{};
    std::optional<kit::Instant> toldAt{};  ///< absent while it is held
    AlertOutcome outcome = AlertOutcome::held;

    bool operator==(const StoredAlert&) const = default;
};

/// What the rules have matched in the last months. An event is in it once for each rule.
class AlertHistory {
public:
    static constexpr std::chrono::days kKept{90};

    explicit AlertHistory(Database& database) : database_(database) {}

    /// Stores the alert unless the rule has matched the event before; says whether it did.
    bool add(const StoredAlert& alert);
    /// What was held has been told.
    void settle(std::string_view rule, std::string_view event, kit::Instant toldAt);
    void dropBefore(kit::Instant matchedAt);

    /// The rules and events of all alerts.
    std::vector<std::pair<std::string, std::string>> matched();

    /// The last stored first; of one rule unless `rule` is empty.
    std::vector<StoredAlert> newest(std::size_t most, std::string_view rule = {});
    std::int64_t lastNumber();  ///< 0 when there is none
    /// Those of stories and prices that no notification was shown of. What is logged is counted
    /// with the log.
    std::int64_t countUntoldAfter(std::int64_t number);

    struct RuleCount {
        std::int64_t matches = 0;
        std::optional<kit::Instant> lastTold{};
        bool operator==(const RuleCount&) const = default;
    };
    /// By the rules' ids: what was matched from then on, and when the rule last told, ever.
    std::map<std::string, RuleCount, std::less<>> countsSince(kit::Instant since);

private:
    Database& database_;
};

}  // namespace app

template <>
inline constexpr std::array<kit::EnumRow<app::AlertOutcome>, 4> kit::enumTable<app::AlertOutcome>{{
    {app::AlertOutcome::notified, "notified", "Notified"},
    {app::AlertOutcome::quiet, "quiet", "Quiet"},
    {app::AlertOutcome::held, "held", "Held"},
    {app::AlertOutcome::summarised, "summarised", "Summary"},
}};
