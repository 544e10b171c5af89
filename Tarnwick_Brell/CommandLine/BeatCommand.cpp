#include <memory>
#include <string>

#include "Tarnwick_Brell/CommandLine/BeatActions.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"

namespace cli {

namespace {

using SharedBeatOptions = std::shared_ptr<BeatOptions>;

void addName(arguments::Command& command, SharedBeatOptions options) {
    command.option("NAME", options->name, "The beat's name or id").required();
}

void addLooks(arguments::Command& command, SharedBeatOptions options) {
    command.option("--symbol", options->symbol, "The icon's name, such as bolt or globe")
        .shownAs("SYMBOL");
    command.option("--alerts", options->alerts, "Notify of its new stories: on or off")
        .shownAs("on|off")
        .oneOf({"on", "off"});
}

}  // namespace

void addBeatCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<BeatOptions>();
    auto beats = app.subcommand("beat", "List the topics that you follow, or change them");
    beats.whenChosen([&chosen] { chosen = listBeats; });

    auto make = addAction(beats, chosen, options, "new", "Follow a topic", newBeat);
    make.option("NAME", options->name, "Its name").required();
    options->query.addTo(make);
    addLooks(make, options);

    auto change = addAction(beats, chosen, options, "change",
                            "Change a beat; what it follows is replaced as a whole", changeBeat);
    addName(change, options);
    change.option("--name", options->newName, "Its new name").shownAs("NAME");
    options->query.addTo(change);
    addLooks(change, options);

    auto rename = addAction(beats, chosen, options, "rename", "Rename a beat", changeBeat);
    addName(rename, options);
    rename.option("NEW", options->newName, "Its new name").required();

    auto test = addAction(beats, chosen, options, "test",
                          "Show what a beat would have matched lately; change nothing", tryBeat);
    test.option("NAME", options->name, "The beat; without it, say what to follow");
    options->query.addTo(test);
    test.number("--days", options->days, {1, 36'500}, "How many days to look back");

    auto move = addAction(beats, chosen, options, "move", "Move a beat to another place", moveBeat);
    addName(move, options);
    move.number("PLACE", options->place, {1, 1'000'000}, "1 is the first").required();

    auto remove = addAction(beats, chosen, options, "remove", "Remove a beat", removeBeat);
    addName(remove, options);
    auto restore =
        addAction(beats, chosen, options, "restore", "Restore a removed beat", restoreBeat);
    restore.option("NAME", options->name, "The beat; without it, the one removed last");
}

}  // namespace cli
