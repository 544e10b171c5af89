#include "NewsroomKit/Signals/AppStoreCharts.h"
#include "NewsroomKit/Signals/AppleUpdateCatalog.h"
#include "NewsroomKit/Signals/SigningStatus.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace brell::inspect {

json::object signing(const json::object& input) {
    const auto status = newsroom::SigningStatus::parse(document(input));
    return newsroom::encode(status, DateStyle::secondsSince1970).get_object();
}

json::object updates(const json::object& input) {
    const auto offers = newsroom::AppleUpdateCatalog::parse(document(input));
    return {{"offers", newsroom::encode(offers, DateStyle::secondsSince1970)}};
}

json::object chart(const json::object& input) {
    return {{"entries", newsroom::encode(newsroom::AppStoreCharts::parse(document(input)))}};
}

}  // namespace brell::inspect
