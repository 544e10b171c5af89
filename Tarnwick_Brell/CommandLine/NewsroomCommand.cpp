#include <memory>
#include <string>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/NewsroomActions.h"

namespace cli {

namespace {

using SharedNewsroomOptions = std::shared_ptr<NewsroomOptions>;
using NewsroomAction = int (*)(Session&, const NewsroomOptions&);

constexpr const char* kNameMeaning = "The newsroom's name or id";

arguments::Command addNewsroomAction(arguments::Command& newsrooms, Command& chosen,
                                     SharedNewsroomOptions options, const char* name,
                                     const char* meaning, NewsroomAction action) {
    auto command = newsrooms.subcommand(name, meaning);
    command.whenChosen([&chosen, options, action] {
        chosen = [options, action](Session& session) { return action(session, *options); };
    });
    return command;
}

arguments::Command addNamedAction(arguments::Command& newsrooms, Command& chosen,
                                  SharedNewsroomOptions options, const char* name,
                                  const char* meaning, NewsroomAction action) {
    auto command = addNewsroomAction(newsrooms, chosen, options, name, meaning, action);
    command.option("NAME", options->name, kNameMeaning).required();
    return command;
}

void addSymbol(arguments::Command& command, SharedNewsroomOptions options) {
    command.option("--symbol", options->symbol, "The icon's name, such as bolt or globe")
        .shownAs("SYMBOL");
}

void addMaking(arguments::Command& newsrooms, Command& chosen, SharedNewsroomOptions options) {
    auto make = addNewsroomAction(newsrooms, chosen, options, "new",
                                  "Create a newsroom of panels, laid out on the grid", newNewsroom);
    make.option("NAME", options->name, "Its name").required();
    make.option("--panels", options->panels,
                "Kinds of panels, separated by commas, such as stream,status,stock")
        .shownAs("KINDS")
        .required();
    options->focus.addTo(make);
    addSymbol(make, options);

    auto change =
        addNamedAction(newsrooms, chosen, options, "change",
                       "Change a newsroom; what it follows is replaced as a whole", changeNewsroom);
    change.option("--name", options->newName, "Its new name").shownAs("NAME");
    change.flag("--everything", options->everything, "Follow every story again");
    options->focus.addTo(change);
    addSymbol(change, options);

    auto rename =
        addNamedAction(newsrooms, chosen, options, "rename", "Rename a newsroom", changeNewsroom);
    rename.option("NEW", options->newName, "Its new name").required();

    auto duplicate = addNamedAction(newsrooms, chosen, options, "duplicate", "Copy a newsroom",
                                    duplicateNewsroom);
    duplicate.option("NEW", options->newName, "The copy's name");
}

void addMoveAndRemove(arguments::Command& newsrooms, Command& chosen,
                      SharedNewsroomOptions options) {
    auto move = addNamedAction(newsrooms, chosen, options, "move",
                               "Move a newsroom to another place", moveNewsroom);
    move.number("PLACE", options->place, {1, 1'000'000}, "1 is the first").required();
    addNamedAction(newsrooms, chosen, options, "remove", "Remove a newsroom", removeNewsroom);
    auto restore = addNewsroomAction(newsrooms, chosen, options, "restore",
                                     "Restore a removed newsroom", restoreNewsroom);
    restore.option("NAME", options->name, "The newsroom; without it, the one removed last");
}

void addExchange(arguments::Command& newsrooms, Command& chosen, SharedNewsroomOptions options) {
    addNamedAction(newsrooms, chosen, options, "export", "Print a newsroom as a file (JSON)",
                   exportNewsroom);
    auto import = addNewsroomAction(newsrooms, chosen, options, "import",
                                    "Add a newsroom from a file that was exported", importNewsroom);
    import.option("FILE", options->file, "The file; - reads the standard input").required();
    import.flag("--preview", options->preview, "Show the result without adding anything");
}

}  // namespace

void addNewsroomCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<NewsroomOptions>();
    auto newsrooms = app.subcommand("newsroom", "List the newsrooms, show one, or change them");
    newsrooms.whenChosen([&chosen] { chosen = listNewsrooms; });
    addNamedAction(newsrooms, chosen, options, "show", "Show a newsroom's panels as text",
                   showNewsroom);
    addMaking(newsrooms, chosen, options);
    addMoveAndRemove(newsrooms, chosen, options);
    addExchange(newsrooms, chosen, options);
}

}  // namespace cli
