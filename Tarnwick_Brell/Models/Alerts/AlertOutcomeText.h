#pragma once

#include <QString>

#include "Tarnwick_Brell/Storage/Histories/AlertHistory.h"

namespace app {

/// "Told 15:02", "Summary 7:00", "Quiet", "Held back"
QString alertOutcomeText(const StoredAlert& alert);
/// Of a bell, a bell that is silent, or a clock.
QString alertOutcomeSymbol(AlertOutcome outcome);

}  // namespace app
