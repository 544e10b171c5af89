#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/SourcesActions.h"

namespace brell {

namespace {

struct SourcesOptions {
    bool status = false;
    std::vector<std::string> ids;
    std::vector<std::string> addresses;
    std::string address;
    std::string id;
    std::string name;
    std::string file;
    bool unchecked = false;
    bool preview = false;
    bool own = false;
    bool withSecrets = false;
};

using Options = std::shared_ptr<SourcesOptions>;

constexpr const char* kIDMeaning = "The source's id, as brell sources lists it";

/// `action` is what the subcommand does with its options.
template <class Action>
void setAction(CLI::App& command, Command& chosen, Options options, Action action) {
    command.callback([&chosen, options, action] {
        chosen = [options, action](Session& session) { return action(session, *options); };
    });
}

void addAdding(CLI::App& sources, Command& chosen, Options options) {
    auto* check = sources.add_subcommand("check", "Show what an address would bring, add nothing");
    check->add_option("ADDRESS", options->address, "Feed, website, @handle or YouTube channel")
        ->required();
    setAction(*check, chosen, options, [](Session& session, const SourcesOptions& o) {
        return checkAddress(session, o.address);
    });

    auto* add = sources.add_subcommand(
        "add", "Add sources by address: a feed, a website, a handle or a channel");
    add->add_option("ADDRESS", options->addresses,
                    "A feed, a website, a Mastodon or Bluesky handle, or a YouTube channel's "
                    "address; several may follow each other")
        ->required();
    add->add_flag("--unchecked", options->unchecked, "Add without fetching it first");
    setAction(*add, chosen, options, [](Session& session, const SourcesOptions& o) {
        return addSources(session, o.addresses, o.unchecked);
    });
}

void addChanges(CLI::App& sources, Command& chosen, Options options) {
    for (const bool enabled : {true, false}) {
        auto* change = sources.add_subcommand(
            enabled ? "enable" : "disable",
            enabled ? "Fetch these sources from now on" : "Leave these sources out");
        change->add_option("ID", options->ids, kIDMeaning)->required();
        setAction(*change, chosen, options, [enabled](Session& session, const SourcesOptions& o) {
            return switchSources(session, o.ids, enabled);
        });
    }
    auto* rename = sources.add_subcommand("rename", "Give a source that you added another name");
    rename->add_option("ID", options->id, kIDMeaning)->required();
    rename->add_option("NAME", options->name, "Its new name; stories take it with the next fetch")
        ->required();
    setAction(*rename, chosen, options, [](Session& session, const SourcesOptions& o) {
        return renameSource(session, o.id, o.name);
    });
    auto* remove = sources.add_subcommand("remove", "Remove sources that you added");
    remove->add_option("ID", options->ids, kIDMeaning)->required();
    setAction(*remove, chosen, options, [](Session& session, const SourcesOptions& o) {
        return removeSources(session, o.ids);
    });
}

void addExchange(CLI::App& sources, Command& chosen, Options options) {
    auto* import =
        sources.add_subcommand("import", "Add the feeds of another reader's list (OPML)");
    import->add_option("FILE", options->file, "The list; - reads the standard input")->required();
    import->add_flag("--preview", options->preview, "Show what would come of it, add nothing");
    setAction(*import, chosen, options, [](Session& session, const SourcesOptions& o) {
        return importSources(session, o.file, o.preview);
    });
    auto* exporting = sources.add_subcommand(
        "export", "Print the sources that are on, and all that you added, as a list (OPML)");
    exporting->add_flag("--own", options->own, "Only those that you added");
    exporting->add_flag("--with-secrets", options->withSecrets,
                        "Keep addresses that carry a password or key");
    setAction(*exporting, chosen, options, [](Session& session, const SourcesOptions& o) {
        return exportSources(
            session, o.own ? desk::ExportScope::own : desk::ExportScope::subscribed, o.withSecrets);
    });
}

}  // namespace

void addSourcesCommand(CLI::App& app, Command& chosen) {
    auto options = std::make_shared<SourcesOptions>();
    auto* command = app.add_subcommand("sources", "List the sources, or change them");
    command->require_subcommand(0, 1);
    command->add_flag("--status", options->status,
                      "Show how fetching goes: when, how fast, how much, and when next");
    command->callback([&chosen, command, options] {
        if (!command->get_subcommands().empty()) return;
        chosen = options->status ? showSourceConsole : listSources;
    });
    addAdding(*command, chosen, options);
    addChanges(*command, chosen, options);
    addExchange(*command, chosen, options);
}

}  // namespace brell
