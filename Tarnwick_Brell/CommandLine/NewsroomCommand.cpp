#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/NewsroomActions.h"

namespace brell {

namespace {

using Options = std::shared_ptr<NewsroomOptions>;
using Action = int (*)(Session&, const NewsroomOptions&);

constexpr const char* kNameMeaning = "The newsroom's name or id";

CLI::App* addAction(CLI::App& newsrooms, Command& chosen, Options options, const char* name,
                    const char* meaning, Action action) {
    auto* command = newsrooms.add_subcommand(name, meaning);
    command->callback([&chosen, options, action] {
        chosen = [options, action](Session& session) { return action(session, *options); };
    });
    return command;
}

CLI::App* addNamedAction(CLI::App& newsrooms, Command& chosen, Options options, const char* name,
                         const char* meaning, Action action) {
    auto* command = addAction(newsrooms, chosen, options, name, meaning, action);
    command->add_option("NAME", options->name, kNameMeaning)->required();
    return command;
}

void addSymbol(CLI::App& command, Options options) {
    command.add_option("--symbol", options->symbol, "The icon's name, such as bolt or globe")
        ->type_name("SYMBOL");
}

void addMaking(CLI::App& newsrooms, Command& chosen, Options options) {
    auto* make = addAction(newsrooms, chosen, options, "new",
                           "Make a newsroom of panels, laid out on the grid", newNewsroom);
    make->add_option("NAME", options->name, "What to call it")->required();
    make->add_option("--panels", options->panels,
                     "Kinds of panels, separated by commas, such as stream,status,stock")
        ->type_name("KINDS")
        ->required();
    options->focus.addTo(*make);
    addSymbol(*make, options);

    auto* change = addNamedAction(newsrooms, chosen, options, "change",
                                  "Change a newsroom; what it follows is replaced as a whole",
                                  changeNewsroom);
    change->add_option("--name", options->newName, "Its new name")->type_name("NAME");
    change->add_flag("--everything", options->everything, "Follow every story again");
    options->focus.addTo(*change);
    addSymbol(*change, options);

    auto* rename = addNamedAction(newsrooms, chosen, options, "rename",
                                  "Give a newsroom another name", changeNewsroom);
    rename->add_option("NEW", options->newName, "Its new name")->required();

    auto* duplicate = addNamedAction(newsrooms, chosen, options, "duplicate",
                                     "Make another newsroom like one", duplicateNewsroom);
    duplicate->add_option("NEW", options->newName, "What to call the other one");
}

void addShelving(CLI::App& newsrooms, Command& chosen, Options options) {
    auto* move = addNamedAction(newsrooms, chosen, options, "move",
                                "Give a newsroom another place", moveNewsroom);
    move->add_option("PLACE", options->place, "1 is the first")
        ->required()
        ->check(CLI::Range(std::int64_t{1}, std::int64_t{1'000'000}));
    addNamedAction(newsrooms, chosen, options, "remove", "Remove a newsroom", removeNewsroom);
    auto* restore = addAction(newsrooms, chosen, options, "restore",
                              "Bring a removed newsroom back", restoreNewsroom);
    restore->add_option("NAME", options->name, "The newsroom; without it, the one removed last");
}

void addExchange(CLI::App& newsrooms, Command& chosen, Options options) {
    addNamedAction(newsrooms, chosen, options, "export", "Print a newsroom as a file (JSON)",
                   exportNewsroom);
    auto* import = addAction(newsrooms, chosen, options, "import",
                             "Add a newsroom from a file that was exported", importNewsroom);
    import->add_option("FILE", options->file, "The file; - reads the standard input")->required();
    import->add_flag("--preview", options->preview, "Show what would come of it, add nothing");
}

}  // namespace

void addNewsroomCommand(CLI::App& app, Command& chosen) {
    auto options = std::make_shared<NewsroomOptions>();
    auto* newsrooms =
        app.add_subcommand("newsroom", "List the newsrooms, show one, or change them");
    newsrooms->require_subcommand(0, 1);
    newsrooms->callback([&chosen, newsrooms] {
        if (newsrooms->get_subcommands().empty()) chosen = listNewsrooms;
    });
    addNamedAction(*newsrooms, chosen, options, "show", "Show a newsroom's panels as text",
                   showNewsroom);
    addMaking(*newsrooms, chosen, options);
    addShelving(*newsrooms, chosen, options);
    addExchange(*newsrooms, chosen, options);
}

}  // namespace brell
