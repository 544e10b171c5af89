#include "NewsroomKit/Court/DocketParser.h"
#include "NewsroomKit/PressWires/PressFeed.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

json::object docket(const json::object& input) {
    const auto parsed = kit::parseDocket(document(input));
    if (!parsed) {
        return {{"error", kit::rawValue(parsed.error())},
                {"description", kit::description(parsed.error())}};
    }
    const auto& sheet = parsed.value();
    json::object answer;
    if (sheet.scope) answer["scope"] = *sheet.scope;
    answer["partial"] = sheet.partial;
    if (sheet.built) answer["built"] = kit::encode(*sheet.built, DateStyle::secondsSince1970);
    answer["entries"] = kit::encode(sheet.entries, DateStyle::secondsSince1970);
    return answer;
}

json::object press(const json::object& input) {
    const auto parsed = kit::parsePress(document(input));
    if (!parsed) {
        return {{"error", kit::rawValue(parsed.error().error)},
                {"description", parsed.error().description}};
    }
    const auto& sheet = parsed.value();
    return {{"releases", kit::encode(sheet.releases, DateStyle::secondsSince1970)},
            {"dropped", sheet.dropped}};
}

}  // namespace cli::inspect
