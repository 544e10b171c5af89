#pragma once

#include <string>
#include <vector>

#include <QString>

#include "NewsroomKit/Panels/ActivityContent.h"
#include "Tarnwick_Brell/Models/Pages/ActivityPageModel.h"
#include "Tarnwick_Brell/Storage/Histories/AlertHistory.h"

/// The log of signals in words.
namespace app {

/// In the user's language: "Firmware signing".
QString signalKindText(kit::SignalKind kind);

/// The key of the desk's own page of what happened; empty when there is none.
QString placeOf(kit::SignalKind kind);

/// Kind, the source's time where it gives one, and the detail: "Software · source’s time 15:38".
QString signalDetail(const kit::ActivityRow& row, kit::Instant now);

/// "signed → not signed"; empty when the evidence does not say.
QString signalChange(const kit::Signal& signal);

/// The log under its days, each line with how it was told by the last of the alerts.
std::vector<ActivityLine> activityLines(const std::vector<kit::ActivityRow>& rows,
                                        const std::vector<StoredAlert>& alerts, kit::Instant now);

/// The stories that share words with the signal, the signal among them, and below them the others.
std::vector<ActivityWireLine> activityWireLines(const kit::ActivityWire& wire,
                                                const kit::ActivityRow& chosen);

/// "The desk saw it 76 min before the first story."
QString wireLeadText(const kit::ActivityWire& wire);

/// The desk's wire around the signal.
kit::ActivityWire wireOf(const NewsDesk& news, const kit::Signal& signal);

}  // namespace app
