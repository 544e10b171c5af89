#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Alerts/AlertRule.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Newsrooms/OrderedRecords.h"
#include "Tarnwick_Brell/Storage/Histories/AlertHistory.h"

namespace app {

class LocalStore;

using AlertRuleRecords = OrderedRecords<kit::AlertRule>;

/// What the rules have matched, as far as it is shown.
struct AlertLog {
    static constexpr std::size_t kMostShown = 500;
    static constexpr std::chrono::days kCounted{14};

    std::vector<StoredAlert> newest{};                                     ///< at most kMostShown
    std::map<std::string, AlertHistory::RuleCount, std::less<>> counts{};  ///< of kCounted
    std::int64_t untold = 0;  ///< see AlertHistory::countUntoldAfter, since the last look

    bool operator==(const AlertLog&) const = default;
};

AlertLog readAlertLog(LocalStore& store, kit::Instant now);

/// The user's rules and the history of what they matched, on the main thread. A change applies at
/// once and is written by the worker. When that fails, `failed` is emitted and the library is read
/// again.
class AlertStore : public QObject {
    Q_OBJECT
public:
    AlertStore(DeskWorker& worker, kit::Clock clock);
    ~AlertStore() override;

    /// Reads the library, also again after another program has written it. `then` is called when
    /// it has been read or cannot be.
    void load(std::function<void()> then = {});
    bool isLoaded() const { return isLoaded_; }

    const AlertRuleRecords& rules() const { return rules_; }
    /// The readable rules, as many of them as are evaluated.
    std::vector<kit::AlertRule> evaluatedRules() const;
    const AlertLog& log() const { return log_; }

    /// Adds or replaces. Throws std::length_error with a sentence when there are too many already.
    void put(kit::AlertRule rule);
    void remove(const std::string& id);
    void restore(const std::string& id);

    /// Stores what has been matched, and what was held and has been told, with what the delivery
    /// remembers afterwards.
    struct Outcome {
        std::vector<StoredAlert> matched{};
        std::vector<StoredAlert> settled{};  ///< rule, event and toldAt count
        std::string delivery{};
        std::optional<std::string>
            prices{};  ///< what the rules on prices remember, if that changed
    };
    void record(Outcome outcome);

    /// What the delivery remembered when the library was first read.
    struct Memory {
        std::string delivery{};  ///< empty when there is nothing
        std::string prices{};
        std::vector<std::pair<std::string, std::string>> matched{};  ///< rules and events
    };
    /// Taken once, by the delivery.
    Memory takeMemory() { return std::exchange(memory_, {}); }

    /// The user looks at the history.
    void markLookedAt();

signals:
    void rulesChanged();
    void logChanged();
    void failed(const QString& sentence);

private:
    using Job = DeskWorker::Job;
    void write(Job job);
    void change(const std::optional<RecordChange>& change);
    void readLog();

    DeskWorker& worker_;
    kit::Clock clock_;
    AlertRuleRecords rules_;
    AlertLog log_;
    Memory memory_;
    bool isLoaded_ = false;
    std::uint64_t changes_ = 0;  ///< counted, to detect readings that a change overtook
    std::shared_ptr<MainThreadQueue> queue_;
};

/// Throws std::length_error with a sentence when one more rule would be too many.
void requireRoomForRule(const AlertRuleRecords& rules);

}  // namespace app
