#include "tools/pictures/PastMonths.h"

#include <array>
#include <chrono>
#include <string>

#include "Tarnwick_Brell/Trackers/StatusWatch.h"

namespace {

using namespace std::chrono_literals;
using std::chrono::days;

struct PastIncident {
    const char* service;
    const char* kind;
    std::chrono::minutes ago;
    std::chrono::minutes length;
    const char* message;
};

constexpr std::array kIncidents{
    PastIncident{"iCloud Mail", "Outage", days(5) + 4h, 125min, "Users could not send mail."},
    PastIncident{"Photos", "Issue", days(5) + 7h, 35min, "Recent photos were slow to appear."},
    PastIncident{"App Store", "Issue", days(8) + 13h, 48min, "Some downloads did not start."},
    PastIncident{"Apple Pay", "Maintenance", days(23) + 6h, 240min, "Scheduled maintenance."},
    PastIncident{"iMessage", "Outage", days(28) + 2h, 140min, "Messages could not be delivered."},
    PastIncident{"Apple Music", "Issue", days(45) + 1h, 65min, "Search was slow for some users."},
    PastIncident{"App Store", "Issue", days(63) + 9h, 31min, "Some updates failed."},
};

void addIncident(app::LocalStore& store, const PastIncident& past, kit::Instant now) {
    const auto begin = now - past.ago;
    kit::AppleServiceStatus::Incident incident{.kind = past.kind,
                                               .status = "ongoing",
                                               .message = past.message,
                                               .started = begin,
                                               .exactStart = kit::secondsSince1970(begin)};
    const auto record = [&](kit::Instant at) {
        store.incidents().record(kit::StatusFeed::consumer, {{past.service, {incident}}}, at);
    };
    record(begin + 6min);
    incident.status = "resolved";
    incident.ended = begin + past.length;
    record(begin + past.length + 5min);
}

void addBuilds(app::LocalStore& store, kit::Instant now) {
    struct PastBuild {
        const char *version, *stage, *build;
        int daysAgo;
    };
    for (const auto& [version, stage, build, daysAgo] : {PastBuild{"27.0", "Release", "24A335", 67},
                                                         {"27.1", "Beta 1", "24B5030f", 60},
                                                         {"27.1", "Beta 2", "24B5042a", 46},
                                                         {"27.1", "Beta 3", "24B5055c", 32},
                                                         {"27.1", "Release", "24B83", 17},
                                                         {"27.2", "Beta 1", "24C5031a", 17}}) {
        const auto published = now - days(daysAgo);
        const kit::SoftwareRelease release{.version = version,
                                           .stage = stage,
                                           .build = build,
                                           .title = std::string("iOS ") + version,
                                           .published = published};
        const bool isBeta = std::string_view(stage).starts_with("Beta");
        store.builds().record({{.platform = "iOS",
                                .current = isBeta ? std::nullopt : std::optional(release),
                                .beta = isBeta ? std::optional(release) : std::nullopt}},
                              published + 10min);
    }
}

}  // namespace

void addPastMonths(app::LocalStore& store, kit::Instant now) {
    if (!store.builds().newest(1).empty()) return;
    auto transaction = store.transaction();
    for (auto at = now - days(81); at < now; at += 2h)
        app::extendWatch(store.state(), kit::StatusFeed::consumer, at);
    for (auto past = kIncidents.rbegin(); past != kIncidents.rend(); ++past)
        addIncident(store, *past, now);
    addBuilds(store, now);
    transaction.commit();
}
