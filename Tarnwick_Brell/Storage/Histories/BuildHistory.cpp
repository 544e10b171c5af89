#include "Tarnwick_Brell/Storage/Histories/BuildHistory.h"

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

using kit::Instant;
using kit::ReleaseChannel;
using kit::SoftwareRelease;

void BuildHistory::record(const std::vector<kit::PlatformRelease>& releases, Instant now) {
    for (const auto& platform : releases) {
        for (const auto channel : {ReleaseChannel::general, ReleaseChannel::beta}) {
            const auto& release = platform.release(channel);
            if (release) record(platform.platform, channel, *release, now);
        }
    }
}

void BuildHistory::record(const std::string& platform, ReleaseChannel channel,
                          const SoftwareRelease& release, Instant now) {
    Statement current(database_,
                      "SELECT number, build FROM builds "
                      "WHERE platform = ? AND channel = ? AND replacedAt IS NULL");
    current.bind(0, platform).bind(1, rawValue(channel));
    if (current.step()) {
        if (current.view(1) == release.build) return;
        Statement replace(database_, "UPDATE builds SET replacedAt = ?2 WHERE number = ?1");
        replace.bind(0, current.number(0)).bind(1, microseconds(now)).run();
    }
    const auto record = boost::json::serialize(kit::encode(release));
    Statement put(database_,
                  "INSERT INTO builds (platform, channel, build, record, firstSeen) "
                  "VALUES (?, ?, ?, ?, ?)");
    put.bind(0, platform).bind(1, rawValue(channel)).bind(2, release.build);
    put.bind(3, record).bind(4, microseconds(now));
    put.run();
}

std::vector<SeenBuild> BuildHistory::newest(std::size_t most) {
    Statement rows(database_,
                   "SELECT platform, channel, record, firstSeen, replacedAt FROM builds "
                   "ORDER BY firstSeen DESC, number DESC LIMIT ?");
    rows.bind(0, static_cast<std::int64_t>(most));
    std::vector<SeenBuild> builds;
    while (rows.step()) {
        builds.push_back(
            {.platform = rows.text(0),
             .channel =
                 kit::enumFromRaw<ReleaseChannel>(rows.text(1)).value_or(ReleaseChannel::general),
             .release = kit::decode<SoftwareRelease>(kit::parseJSON(rows.text(2))),
             .firstSeen = instantOf(rows.number(3)),
             .replacedAt = instantOf(rows.optionalNumber(4))});
    }
    return builds;
}

}  // namespace app
