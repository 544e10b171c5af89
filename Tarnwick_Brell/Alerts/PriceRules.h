#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NewsroomKit/Alerts/AlertRule.h"
#include "NewsroomKit/Markets/PriceWatch.h"

namespace app {

/// The user's rules on prices, each with what it has seen so far.
class PriceRules {
public:
    /// Takes the rules on prices among these. One whose condition has changed begins anew.
    void setRules(const std::vector<kit::AlertRule>& rules);

    /// Of the rules that are on, each once.
    std::vector<std::string> symbols() const;

    struct Fired {
        const kit::AlertRule& rule;
        kit::PriceFiring firing;
    };
    /// What the quote makes fire. `seenAt`: when it was fetched.
    std::vector<Fired> see(const kit::StockQuote& quote, kit::Instant seenAt);

    /// What must outlive a run, as JSON text.
    std::string state() const;
    /// Before `setRules`. What can't be read begins anew.
    void restore(std::string_view state);

private:
    struct Watched {
        kit::AlertRule rule;
        kit::PriceState state{};
    };
    std::map<std::string, Watched, std::less<>> watched_;  ///< by rule
    /// Restored states of rules that have not been given yet.
    std::map<std::string, std::pair<kit::PriceTrigger, kit::PriceState>, std::less<>> restored_;
};

}  // namespace app
