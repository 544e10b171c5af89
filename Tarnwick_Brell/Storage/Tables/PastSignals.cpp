#include "Tarnwick_Brell/Storage/Tables/PastSignals.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <ranges>
#include <vector>

#include "NewsroomKit/Log/Log.h"
#include "NewsroomKit/Records/RecordError.h"
#include "NewsroomKit/Trackers/Releases/ReleaseSignals.h"
#include "NewsroomKit/Trackers/Signing/SigningSignals.h"
#include "NewsroomKit/Trackers/Status/ServiceSignals.h"
#include "NewsroomKit/Trackers/Updates/OfferSignals.h"
#include "Tarnwick_Brell/Storage/Histories/BuildHistory.h"
#include "Tarnwick_Brell/Storage/Histories/IncidentLog.h"
#include "Tarnwick_Brell/Storage/Histories/OfferHistory.h"
#include "Tarnwick_Brell/Storage/Histories/SignalLog.h"
#include "Tarnwick_Brell/Storage/Histories/SigningHistory.h"
#include "Tarnwick_Brell/Storage/Tables/DeskState.h"

namespace app {

namespace {

constexpr auto kAll = static_cast<std::size_t>(std::numeric_limits<std::int64_t>::max());

/// A history that can't be read must not keep the library from being opened.
template <class Signals>
void appendPast(std::vector<kit::Signal>& past, Signals signalsOfHistory) {
    try {
        std::ranges::move(signalsOfHistory(), std::back_inserter(past));
    } catch (const kit::RecordError& error) {
        kit::log(kit::LogCategory::storage, kit::LogLevel::warning,
                 "a history was left out of the log of signals: {}", error.what());
    }
}

}  // namespace

void logPast(Database& database) {
    std::vector<kit::Signal> past;
    appendPast(past, [&] { return kit::pastSignals(BuildHistory(database).newest(kAll)); });
    appendPast(past, [&] { return kit::pastSignals(IncidentLog(database).find("", kAll)); });
    appendPast(past, [&] { return kit::signalsOf(SigningHistory(database).after(0)); });
    appendPast(past, [&] { return kit::signalsOf(OfferHistory(database).after(0)); });
    std::ranges::stable_sort(past, {}, &kit::Signal::seenAt);
    SignalLog log(database);
    log.add(past);
    DeskState(database).setNumber(DeskState::kLookedAtSignal, log.lastNumber());
}

}  // namespace app
