#pragma once

#include <string_view>
#include <vector>

#include "Tarnwick_Brell/Signals/SignalFiles.h"
#include "Tarnwick_Brell/Trackers/KeptAnswers.h"

namespace app {

/// What the library holds of firmware signing, updates and charts, without the network.
class LastSignals {
public:
    explicit LastSignals(LocalStore& store) : answers_(store) {}

    TrackerReading<kit::SigningStatus> signing(std::string_view device);
    TrackerReading<std::vector<kit::UpdateOffer>> updates();
    TrackerReading<std::vector<kit::ChartEntry>> chart(kit::AppStoreCharts::Kind kind);

private:
    KeptAnswers answers_;
};

}  // namespace app
