#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Releases/ReleaseTitle.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::PlatformRelease;
using kit::ReleaseChannel;
using Releases = std::vector<PlatformRelease>;

struct ReleasesOptions {
    bool history = false;
    bool stored = false;
};

std::string channelText(ReleaseChannel channel) {
    return channel == ReleaseChannel::beta ? "beta" : "public";
}

void printReleases(Session& session, const Releases& releases) {
    TextTable table({Column::cut("release", 18), Column::whole("platform").dropped(2),
                     Column::whole("channel").dropped(1), Column::whole("build"),
                     Column::whole("published")});
    for (const auto& platform : releases) {
        for (const auto channel : {ReleaseChannel::general, ReleaseChannel::beta}) {
            const auto& release = platform.release(channel);
            if (!release) continue;
            table.add({printable(kit::titleOf(platform.platform, *release)),
                       printable(platform.platform), channelText(channel),
                       printable(release->build), agoText(release->published, session.now())});
        }
    }
    table.print(session.out());
}

int showReleases(Session& session, const ReleasesOptions& options) {
    const auto reading =
        fetchOrLoad(session, options.stored, [](const auto& files) { return files.releases(); });
    return showTracker<Releases>(
        session, options.stored, reading,
        {.json =
             [](const Releases& releases) {
                 return boost::json::object{{"platforms", kit::encode(releases)}};
             },
         .text = [&](const Releases& releases) { printReleases(session, releases); }});
}

int showHistory(Session& session) {
    // Some ten platforms have a hundred builds a year each.
    constexpr std::size_t most = 10'000;
    const auto builds = session.storeForReading().builds().newest(most);
    auto& out = session.out();
    if (session.options().json) {
        out.line(boost::json::serialize(kit::encode(builds)));
        return kDone;
    }
    if (builds.empty()) {
        session.advise("No build has been seen yet. brell releases fetches them.");
        return kDone;
    }
    TextTable table({Column::cut("release", 18), Column::whole("channel").dropped(1),
                     Column::whole("build"), Column::whole("first seen"),
                     Column::whole("replaced").dropped(2)});
    for (const auto& seen : builds) {
        table.add({printable(kit::titleOf(seen.platform, seen.release)), channelText(seen.channel),
                   printable(seen.release.build), momentText(seen.firstSeen),
                   seen.replacedAt ? momentText(*seen.replacedAt) : ""});
    }
    table.print(out);
    return kDone;
}

}  // namespace

void addReleasesCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<ReleasesOptions>();
    auto command = app.subcommand("releases", "The current releases and betas of Apple's systems");
    auto history =
        command.flag("--history", options->history,
                     "Instead, every build that this desk has ever seen, the newest first");
    addStoredFlag(command, options->stored).excludes(history);
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) {
            return options->history ? showHistory(session) : showReleases(session, *options);
        };
    });
}

}  // namespace cli
