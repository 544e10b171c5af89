#include "Tarnwick_Brell/Signals/SignalFiles.h"

#include "Tarnwick_Brell/Signals/SignalDoubts.h"
#include "Tarnwick_Brell/Storage/Settings/SettingKey.h"

namespace app {

using kit::AppleUpdateCatalog;
using kit::AppStoreCharts;
using kit::SigningStatus;

TrackedFile<SigningStatus> signingFile(std::string_view device) {
    return {.name = std::string(kSigningNames) + std::string(device),
            .title = "What is signed for " + std::string(device),
            .parse = SigningStatus::parse,
            .emptiness = Emptiness::neverAgain,
            .saysNothing = [](const SigningStatus& status) { return status.builds.empty(); },
            .mended = mended,
            .absence = "The service knows no such device."};
}

TrackedFile<std::vector<kit::UpdateOffer>> updatesFile() {
    return {
        .name = "updates",
        .title = "Apple's update catalogue",
        .parse = AppleUpdateCatalog::parse,
        .emptiness = Emptiness::never,
        .saysNothing = [](const std::vector<kit::UpdateOffer>& offers) { return offers.empty(); },
        .mended = mended,
        .distrust = "It is of Apple's own authority; the setting " +
                    std::string(SettingKey::kUpdateCatalogueAuthority) +
                    " names a file with that authority's certificate."};
}

TrackedFile<std::vector<kit::ChartEntry>> chartFile(AppStoreCharts::Kind kind) {
    return {
        .name = "chart/" + std::string(rawValue(kind)),
        .title = "The chart \"" + std::string(label(kind)) + "\"",
        .parse = AppStoreCharts::parse,
        .emptiness = Emptiness::never,
        .saysNothing = [](const std::vector<kit::ChartEntry>& entries) { return entries.empty(); },
        .mended = mended};
}

}  // namespace app
