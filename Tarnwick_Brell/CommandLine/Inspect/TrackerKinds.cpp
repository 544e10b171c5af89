#include <optional>

#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"
#include "NewsroomKit/Trackers/Releases/NewBuilds.h"
#include "NewsroomKit/Trackers/Status/ServiceProblems.h"
#include "NewsroomKit/Trackers/TrackerAPI.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

using kit::AppleServiceStatus;
using kit::NewBuilds;
using kit::ServiceProblems;
using kit::TrackerAPI;

namespace {

template <class Record>
json::object written(const Record& record) {
    return kit::encode(record, DateStyle::secondsSince1970).get_object();
}

json::array reports(const std::vector<AppleServiceStatus::Report>& list) {
    json::array array;
    for (const auto& report : list) {
        json::object object{{"id", report.id()}};
        for (const auto& pair : written(report)) object.insert(pair);
        array.push_back(std::move(object));
    }
    return array;
}

template <class T>
std::optional<T> given(const json::object& input, std::string_view key) {
    const auto* value = input.if_contains(key);
    if (!value || value->is_null()) return std::nullopt;
    return required<T>(input, key);
}

std::optional<AppleServiceStatus::Services> givenServices(const json::object& input,
                                                          std::string_view key) {
    const auto text = given<std::string>(input, key);
    if (!text) return std::nullopt;
    return AppleServiceStatus::parse(*text);
}

}  // namespace

json::object status(const json::object& input) {
    const auto since = given<kit::Instant>(input, "since");
    const auto services = AppleServiceStatus::parse(document(input));
    json::object answer{{"services", kit::encode(services, DateStyle::secondsSince1970)},
                        {"ongoing", reports(AppleServiceStatus::ongoingReports(services))}};
    if (since) answer["recent"] = reports(AppleServiceStatus::recentReports(*since, services));
    return answer;
}

json::object problems(const json::object& input) {
    const auto look = ServiceProblems::detect(given<ServiceProblems::Known>(input, "known"),
                                              givenServices(input, "consumer"),
                                              givenServices(input, "developer"));
    json::array ids;
    for (const auto& report : look.problems) ids.emplace_back(report.id());
    json::object answer{{"problems", std::move(ids)}, {"restored", kit::encode(look.restored)}};
    if (look.known) answer["known"] = kit::encode(*look.known);
    return answer;
}

json::object releases(const json::object& input) {
    const auto platforms = TrackerAPI::parseReleases(required<std::string>(input, "text"),
                                                     kit::DateForms::textAndNumbers);
    const auto look = NewBuilds::detect(
        given<NewBuilds::Known>(input, "knownBuilds").value_or(NewBuilds::Known()), platforms);
    json::array keys;
    for (const auto& build : look.announced) keys.emplace_back(build.key());
    return {{"platforms", kit::encode(platforms, DateStyle::secondsSince1970)},
            {"announced", std::move(keys)},
            {"knownBuilds", kit::encode(look.known)}};
}

json::object events(const json::object& input) {
    json::array list;
    const auto calendar = TrackerAPI::parseEvents(required<std::string>(input, "text"),
                                                  kit::DateForms::textAndNumbers);
    for (const auto& event : calendar) {
        auto object = written(event);
        object["anniversary"] = event.isAnniversary();
        object["released"] = event.isReleased();
        list.push_back(std::move(object));
    }
    return {{"events", std::move(list)}};
}

json::object quote(const json::object& input) {
    const auto stock = TrackerAPI::parseQuote(required<std::string>(input, "text"));
    json::object answer{{"open", stock.isOpen()}};
    if (const auto close = stock.previousClose()) answer["previousClose"] = kit::encode(*close);
    return answer;
}

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
