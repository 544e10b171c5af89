#include <memory>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/SourcesActions.h"

namespace cli {

namespace {

struct SourcesOptions {
    bool status = false;
    std::vector<std::string> ids;
    std::vector<std::string> addresses;
    std::string address;
    std::string id;
    std::string name;
    std::string file;
    SourceWishes wishes;
    bool unchecked = false;
    bool preview = false;
    bool own = false;
    bool withSecrets = false;
};

using SharedSourcesOptions = std::shared_ptr<SourcesOptions>;

constexpr const char* kIDMeaning = "The source's id, as brell sources lists it";

/// `action` runs the subcommand with its options.
template <class SourcesAction>
void setAction(arguments::Command& command, Command& chosen, SharedSourcesOptions options,
               SourcesAction action) {
    command.whenChosen([&chosen, options, action] {
        chosen = [options, action](Session& session) { return action(session, *options); };
    });
}

void addAdding(arguments::Command& sources, Command& chosen, SharedSourcesOptions options) {
    auto check = sources.subcommand("check", "Show what an address leads to without adding it");
    check.option("ADDRESS", options->address, "Feed, website, @handle or YouTube channel")
        .required();
    setAction(check, chosen, options, [](Session& session, const SourcesOptions& o) {
        return checkAddress(session, o.address);
    });

    auto add = sources.subcommand(
        "add", "Add sources by address: a feed, a website, a handle or a channel");
    add.option("ADDRESS", options->addresses,
               "A feed, a website, a Mastodon or Bluesky handle, or a YouTube channel's "
               "address; several may follow each other")
        .required();
    add.flag("--unchecked", options->unchecked, "Add without fetching it first");
    setAction(add, chosen, options, [](Session& session, const SourcesOptions& o) {
        return addSources(session, o.addresses, o.unchecked);
    });
}

void addChanges(arguments::Command& sources, Command& chosen, SharedSourcesOptions options) {
    for (const bool enabled : {true, false}) {
        auto change = sources.subcommand(
            enabled ? "enable" : "disable",
            enabled ? "Fetch these sources from now on" : "Stop fetching these sources");
        change.option("ID", options->ids, kIDMeaning).required();
        setAction(change, chosen, options, [enabled](Session& session, const SourcesOptions& o) {
            return switchSources(session, o.ids, enabled);
        });
    }
    auto rename = sources.subcommand("rename", "Rename a source that you added");
    rename.option("ID", options->id, kIDMeaning).required();
    rename.option("NAME", options->name, "Its new name; stories get it with the next fetch")
        .required();
    setAction(rename, chosen, options, [](Session& session, const SourcesOptions& o) {
        return renameSource(session, o.id, o.name);
    });
    auto remove = sources.subcommand("remove", "Remove sources that you added");
    remove.option("ID", options->ids, kIDMeaning).required();
    setAction(remove, chosen, options, [](Session& session, const SourcesOptions& o) {
        return removeSources(session, o.ids);
    });
}

void addSetting(arguments::Command& sources, Command& chosen, SharedSourcesOptions options) {
    auto set = sources.subcommand("set", "Set how sources are fetched and where they are shown");
    set.option("ID", options->ids, kIDMeaning).required();
    set.option("--only-apple", options->wishes.onlyApple, "Keep only stories about Apple")
        .oneOf({"yes", "no", "usual"});
    set.option("--in-all", options->wishes.inAll, "Show their stories among all stories")
        .oneOf({"yes", "no"});
    set.option("--interval", options->wishes.interval,
               "The least minutes between two fetches; \"usual\" is the catalogue's")
        .shownAs("MINUTES")
        .checked(intervalComplaint);
    setAction(set, chosen, options, [](Session& session, const SourcesOptions& o) {
        return setSourceOptions(session, o.ids, o.wishes);
    });
}

void addExchange(arguments::Command& sources, Command& chosen, SharedSourcesOptions options) {
    auto import = sources.subcommand("import", "Add the feeds of another reader's list (OPML)");
    import.option("FILE", options->file, "The list; - reads the standard input").required();
    import.flag("--preview", options->preview, "Show the result without adding anything");
    setAction(import, chosen, options, [](Session& session, const SourcesOptions& o) {
        return importSources(session, o.file, o.preview);
    });
    auto exporting = sources.subcommand(
        "export", "Print the sources that are on, and all that you added, as a list (OPML)");
    exporting.flag("--own", options->own, "Only those that you added");
    exporting.flag("--with-secrets", options->withSecrets,
                   "Keep addresses that carry a password or key");
    setAction(exporting, chosen, options, [](Session& session, const SourcesOptions& o) {
        return exportSources(session, o.own ? app::ExportScope::own : app::ExportScope::subscribed,
                             o.withSecrets);
    });
}

}  // namespace

void addSourcesCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<SourcesOptions>();
    auto command = app.subcommand("sources", "List the sources, or change them");
    command.flag("--status", options->status,
                 "Show fetch statistics: when, how fast, how much, and when next");
    command.whenChosen(
        [&chosen, options] { chosen = options->status ? showSourceConsole : listSources; });
    addAdding(command, chosen, options);
    addChanges(command, chosen, options);
    addSetting(command, chosen, options);
    addExchange(command, chosen, options);
}

}  // namespace cli
