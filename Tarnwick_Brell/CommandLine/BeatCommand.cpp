#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "Tarnwick_Brell/CommandLine/BeatActions.h"
#include "Tarnwick_Brell/CommandLine/Command.h"

namespace brell {

namespace {

using Options = std::shared_ptr<BeatOptions>;
using Action = int (*)(Session&, const BeatOptions&);

CLI::App* addAction(CLI::App& beats, Command& chosen, Options options, const char* name,
                    const char* meaning, Action action) {
    auto* command = beats.add_subcommand(name, meaning);
    command->callback([&chosen, options, action] {
        chosen = [options, action](Session& session) { return action(session, *options); };
    });
    return command;
}

void addName(CLI::App& command, Options options) {
    command.add_option("NAME", options->name, "The beat's name or id")->required();
}

void addLooks(CLI::App& command, Options options) {
    command.add_option("--symbol", options->symbol, "The icon's name, such as bolt or globe")
        ->type_name("SYMBOL");
    command.add_option("--alerts", options->alerts, "Announce its new stories: on or off")
        ->type_name("on|off")
        ->check(CLI::IsMember({"on", "off"}));
}

}  // namespace

void addBeatCommand(CLI::App& app, Command& chosen) {
    auto options = std::make_shared<BeatOptions>();
    auto* beats = app.add_subcommand("beat", "List the topics that you follow, or change them");
    beats->require_subcommand(0, 1);
    beats->callback([&chosen, beats] {
        if (beats->get_subcommands().empty()) chosen = listBeats;
    });

    auto* make = addAction(*beats, chosen, options, "new", "Follow a topic", newBeat);
    make->add_option("NAME", options->name, "What to call it")->required();
    options->query.addTo(*make);
    addLooks(*make, options);

    auto* change = addAction(*beats, chosen, options, "change",
                             "Change a beat; what it follows is replaced as a whole", changeBeat);
    addName(*change, options);
    change->add_option("--name", options->newName, "Its new name")->type_name("NAME");
    options->query.addTo(*change);
    addLooks(*change, options);

    auto* rename = addAction(*beats, chosen, options, "rename", "Give a beat another name",
                             changeBeat);
    addName(*rename, options);
    rename->add_option("NEW", options->newName, "Its new name")->required();

    auto* test = addAction(*beats, chosen, options, "test",
                           "Show what a beat would have matched lately; change nothing", tryBeat);
    test->add_option("NAME", options->name, "The beat; without it, say what to follow");
    options->query.addTo(*test);
    test->add_option("--days", options->days, "Look so many days back")
        ->check(CLI::Range(std::int64_t{1}, std::int64_t{36'500}))
        ->capture_default_str();

    auto* move = addAction(*beats, chosen, options, "move", "Give a beat another place", moveBeat);
    addName(*move, options);
    move->add_option("PLACE", options->place, "1 is the first")
        ->required()
        ->check(CLI::Range(std::int64_t{1}, std::int64_t{1'000'000}));

    auto* remove = addAction(*beats, chosen, options, "remove", "Remove a beat", removeBeat);
    addName(*remove, options);
    auto* restore = addAction(*beats, chosen, options, "restore", "Bring a removed beat back",
                              restoreBeat);
    restore->add_option("NAME", options->name, "The beat; without it, the one removed last");
}

}  // namespace brell
