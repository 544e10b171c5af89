#include "NewsroomKit/Archive/ArchiveAddresses.h"
#include "NewsroomKit/Trackers/TrackerAPI.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

namespace {

/// The plain number; an Instant is always finite and rounds to microseconds.
double secondsIn(const json::object& input, std::string_view key) {
    const auto* value = input.if_contains(key);
    if (!value || !value->is_string()) return required<double>(input, key);
    return kit::secondsSince1970(required<kit::Instant>(input, key));
}

std::string addressFor(std::string_view operation, const json::object& input) {
    const auto base = kit::archiveBaseAt(kit::TrackerAPI::kServiceAddress);
    const kit::ArchiveAddresses addresses{base};
    if (operation == "status") return addresses.status();
    if (operation == "credits")
        return addresses.credits(required<std::vector<std::string>>(input, "urls"));
    if (operation == "trace") return addresses.trace(required<std::string>(input, "url"));
    if (operation == "stories") {
        return addresses.stories({secondsIn(input, "after"), secondsIn(input, "before")},
                                 required<std::int64_t>(input, "offset"),
                                 required<std::int64_t>(input, "limit"));
    }
    throw kit::RecordError("operation", "there is none of that name");
}

}  // namespace

json::object archiveURL(const json::object& input) {
    return {{"url", addressFor(required<std::string>(input, "operation"), input)}};
}

}  // namespace cli::inspect
