#pragma once

#include <string>

#include <QString>

#include "NewsroomKit/Alerts/AlertRule.h"
#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

/// Why the rule can't be stored, as a sentence. Empty when it can.
QString ruleProblem(const DeskStores& stores, const kit::AlertRule& rule);

/// Adds the rule or replaces the one with its id, so that it can be undone. The user is shown the
/// notice, unless it is empty.
void putRule(const DeskStores& stores, const kit::AlertRule& rule, const QString& notice = {});

/// Removes the rule, so that it can be undone.
void removeRule(const DeskStores& stores, const std::string& id);

/// What the rule tells of and how, in one or two sentences.
QString ruleText(const DeskStores& stores, const kit::AlertRule& rule);

}  // namespace app
