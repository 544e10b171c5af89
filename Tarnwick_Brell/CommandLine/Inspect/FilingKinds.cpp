#include "NewsroomKit/Filings/Filing.h"
#include "NewsroomKit/Filings/OwnershipForm.h"
#include "NewsroomKit/Filings/SaleNotice.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

namespace {

json::object refusal(kit::FilingsError error) {
    return {{"error", kit::rawValue(error)}, {"description", kit::description(error)}};
}

template <class Form>
json::object formAnswer(const boost::outcome_v2::unchecked<Form, kit::FilingsError>& parsed) {
    if (!parsed) return refusal(parsed.error());
    return kit::encode(parsed.value(), DateStyle::secondsSince1970).get_object();
}

}  // namespace

json::object filings(const json::object& input) {
    const auto parsed = kit::parseFilings(document(input));
    if (!parsed) return refusal(parsed.error());
    return {{"filings", kit::encode(parsed.value(), DateStyle::secondsSince1970)}};
}

json::object ownership(const json::object& input) {
    return formAnswer(kit::parseOwnership(document(input), optional<std::string>(input, "filed")));
}

json::object notice(const json::object& input) {
    return formAnswer(kit::parseSaleNotice(document(input)));
}

}  // namespace cli::inspect
