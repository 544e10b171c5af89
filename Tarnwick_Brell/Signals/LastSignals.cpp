#include "Tarnwick_Brell/Signals/LastSignals.h"

namespace desk {

TrackerReading<newsroom::SigningStatus> LastSignals::signing(std::string_view device) {
    return answers_.read(signingFile(device));
}

TrackerReading<std::vector<newsroom::UpdateOffer>> LastSignals::updates() {
    return answers_.read(updatesFile());
}

TrackerReading<std::vector<newsroom::ChartEntry>> LastSignals::chart(
    newsroom::AppStoreCharts::Kind kind) {
    return answers_.read(chartFile(kind));
}

}  // namespace desk
