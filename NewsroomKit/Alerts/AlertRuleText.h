#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Alerts/AlertRule.h"

namespace kit {

/// What the rule tells of: "Stories with “homepad”, report or firmer, once 3 outlets have it."
/// `beatName` is that of the rule's beat.
std::string alertTriggerText(const AlertTrigger& trigger, const std::string& beatName = {});

/// How it is told, as far as that is unusual: "at most one in 30 minutes, once". Empty for a plain
/// notification.
std::string alertDeliveryText(const AlertDelivery& delivery);

/// Why the rule can never tell anything, as a sentence; nothing when it can.
std::optional<std::string> alertRuleProblem(const AlertRule& rule, Instant now);

/// A narrower rule that would not have told this: less that is as light, or without a word that
/// the user chooses. Nothing when the rule can't be narrowed like that.
std::optional<AlertRule> withHigherLeast(const AlertRule& rule);
std::optional<AlertRule> withoutWord(const AlertRule& rule, const std::string& word);

}  // namespace kit
