#include "Tarnwick_Brell/Signals/LastSignals.h"

namespace app {

TrackerReading<kit::SigningStatus> LastSignals::signing(std::string_view device) {
    return answers_.read(signingFile(device));
}

TrackerReading<std::vector<kit::UpdateOffer>> LastSignals::updates() {
    return answers_.read(updatesFile());
}

TrackerReading<std::vector<kit::ChartEntry>> LastSignals::chart(kit::AppStoreCharts::Kind kind) {
    return answers_.read(chartFile(kind));
}

}  // namespace app
