#pragma once

#include <string_view>
#include <vector>

#include "Tarnwick_Brell/Signals/SignalFiles.h"
#include "Tarnwick_Brell/Trackers/KeptAnswers.h"

namespace desk {

/// What the library holds of firmware signing, updates and charts, without the network.
class LastSignals {
public:
    explicit LastSignals(LocalStore& store) : answers_(store) {}

    TrackerReading<newsroom::SigningStatus> signing(std::string_view device);
    TrackerReading<std::vector<newsroom::UpdateOffer>> updates();
    TrackerReading<std::vector<newsroom::ChartEntry>> chart(newsroom::AppStoreCharts::Kind kind);

private:
    KeptAnswers answers_;
};

}  // namespace desk
