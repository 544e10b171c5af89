#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

json::object signing(const json::object& input) {
    const auto status = kit::SigningStatus::parse(document(input));
    return kit::encode(status, DateStyle::secondsSince1970).get_object();
}

json::object updates(const json::object& input) {
    const auto offers = kit::AppleUpdateCatalog::parse(document(input));
    return {{"offers", kit::encode(offers, DateStyle::secondsSince1970)}};
}

json::object chart(const json::object& input) {
    return {{"entries", kit::encode(kit::AppStoreCharts::parse(document(input)))}};
}

}  // namespace cli::inspect
