#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Alerts/AlertRule.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

namespace cli {

/// The options that say what an alert rule tells of, and how.
struct AlertOptions {
    // Stories
    QueryOptions query{};
    std::string beat{};
    std::string leastSourcing{};
    std::optional<std::int64_t> outlets{};
    // Signals
    std::vector<std::string> kinds{};
    std::string words{};
    std::string without{};
    std::string leastWeight{};
    // A price
    std::string symbol{};
    std::optional<double> above{};
    std::optional<double> below{};
    std::optional<double> dayMove{};
    std::optional<double> move{};
    std::optional<std::int64_t> withinMinutes{};
    std::optional<double> gap{};
    bool yearHigh = false;
    bool yearLow = false;
    // Delivery
    bool quiet = false;
    bool sound = false;
    bool inQuietHours = false;
    bool once = false;
    std::optional<std::int64_t> minutes{};
    std::string ends{};

    /// Adds the options of the trigger. This object must live until the command line has been read.
    void addTriggerTo(arguments::Command& command);
    void addDeliveryTo(arguments::Command& command);

    /// Whether any option of a trigger was given.
    bool hasTrigger() const;

    /// Throw WrongUsage.
    kit::AlertTrigger trigger(app::LocalStore& store) const;
    kit::AlertDelivery delivery(kit::Instant now) const;

private:
    bool isOfStories() const;
    bool isOfSignals() const;
    kit::StoriesTrigger storiesTrigger(app::LocalStore& store) const;
    kit::SignalsTrigger signalsTrigger() const;
    kit::PriceTrigger priceTrigger() const;
};

}  // namespace cli
