#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::UpdateOffer;
using Offers = std::vector<UpdateOffer>;

struct UpdatesOptions {
    std::string platform;
    bool history = false;
    bool stored = false;

    bool wants(const UpdateOffer& offer) const {
        return platform.empty() ||
               kit::lowercasedASCII(offer.platform) == kit::lowercasedASCII(platform);
    }
};

std::string systemText(const UpdateOffer& offer) {
    return printable(offer.platform) + " " + printable(offer.version);
}

void print(Output& out, const Offers& offers, const std::string& platform) {
    if (offers.empty()) {
        out.line("Nothing is offered for " + printable(platform) + ".");
        return;
    }
    TextTable table({Column::cut("update", 14), Column::whole("build"), Column::whole("posted"),
                     Column::whole("expires").dropped(1), Column::whole("devices").dropped(2),
                     Column::whole("newest").dropped(3)});
    for (const auto& offer : offers) {
        table.add({systemText(offer), printable(offer.build), namedDayText(offer.posted),
                   offer.expires ? namedDayText(*offer.expires) : "",
                   std::to_string(offer.deviceCount), printable(offer.newestDevice.value_or(""))});
    }
    table.print(out);
}

int showUpdates(Session& session, const UpdatesOptions& options) {
    auto readings = fetchOrLoadEach<Offers>(
        session, options.stored, {"updates"},
        [](const auto& files, const std::string&) { return files.updates(); });
    auto& reading = readings.front().reading;
    if (reading.value) {
        std::erase_if(*reading.value, [&](const auto& offer) { return !options.wants(offer); });
    }
    return showTracker<Offers>(
        session, options.stored, reading,
        {.json =
             [](const Offers& offers) {
                 return boost::json::object{{"offers", kit::encode(offers)}};
             },
         .text = [&](const Offers& offers) { print(session.out(), offers, options.platform); }});
}

int showHistory(Session& session, const UpdatesOptions& options) {
    // Apple posts some hundreds of updates a year.
    constexpr std::size_t most = 10'000;
    auto changes = session.storeForReading().offers().newest(most);
    std::erase_if(changes, [&](const auto& change) { return !options.wants(change.offer); });
    auto& out = session.out();
    if (session.options().json) {
        out.line(boost::json::serialize(kit::encode(changes)));
        return kDone;
    }
    if (changes.empty()) {
        session.advise("No change has been seen yet. brell updates checks for changes.");
        return kDone;
    }
    TextTable table({Column::cut("update", 14), Column::whole("build"),
                     Column::whole("posted").dropped(1), Column::whole(""), Column::whole("seen")});
    for (const auto& change : changes) {
        table.add({systemText(change.offer), printable(change.offer.build),
                   namedDayText(change.offer.posted), change.isOffered ? "now offered" : "gone",
                   momentText(change.seenAt)});
    }
    table.print(out);
    return kDone;
}

}  // namespace

void addUpdatesCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<UpdatesOptions>();
    auto command =
        app.subcommand("updates", "What Apple's update catalogue offers, the newest first");
    command.option("--platform", options->platform, "Only of this platform: iOS, macOS, watchOS, …")
        .shownAs("P");
    auto history =
        command.flag("--history", options->history,
                     "Instead, every offer that this desk has seen come or go, the newest first");
    addStoredFlag(command, options->stored).excludes(history);
    command.footer(
        "The catalogue's host has a certificate of Apple's own authority, which systems do not "
        "know: the setting updateCatalogueAuthority names a file with it. Days are those of New "
        "York.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) {
            return options->history ? showHistory(session, *options)
                                    : showUpdates(session, *options);
        };
    });
}

}  // namespace cli
