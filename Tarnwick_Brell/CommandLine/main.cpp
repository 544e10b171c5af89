#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"
#include "Tarnwick_Brell/CommandLine/TerminalText.h"
#include "Tarnwick_Brell/Shell/Premises.h"

namespace {

using namespace brell;

int complain(int status, const std::string& sentence) {
    // Sentences may quote what came from the network.
    std::string text;
    for (std::size_t begin = 0; begin <= sentence.size();) {
        const auto end = std::min(sentence.find('\n', begin), sentence.size());
        const auto line = sentence.substr(begin, end - begin);
        const auto indent = line.substr(0, line.find_first_not_of(' '));
        text += (begin > 0 ? "\n" : "") + indent + printable(line);
        begin = end + 1;
    }
    fmt::print(stderr, "brell: {}\n", text);
    return status;
}

void addGlobalOptions(CLI::App& app, GlobalOptions& options) {
    app.add_flag("--json", options.json, "Print one JSON value instead of text");
    desk::addDeskOptions(app, options);
}

/// What was done before a failure is told before the failure is.
int carryOut(const Command& command, Session& session) {
    try {
        const int status = command(session);
        session.out().flush();
        return status;
    } catch (const OutputError&) {
        throw;
    } catch (const std::exception&) {
        session.out().flush();
        throw;
    }
}

int run(const Command& command, GlobalOptions options) {
    try {
        Session session(std::move(options));
        return carryOut(command, session);
    } catch (const WrongUsage& error) {
        return complain(kWrongUsage, error.what());
    } catch (const desk::OptionsClash& error) {
        return complain(kWrongUsage, error.what());
    } catch (const std::exception& error) {
        return complain(kWorkFailed, error.what());
    }
}

}  // namespace

int main(int argc, char** argv) {
    // A reader that leaves shows as a failed write, with a message and an exit status.
    std::signal(SIGPIPE, SIG_IGN);

    CLI::App app("A news desk for people who follow Apple closely.", "brell");
    app.set_version_flag("--version", std::string("brell ") + BRELL_VERSION);
    app.require_subcommand(1);
    app.fallthrough();

    GlobalOptions options;
    Command chosen;
    addGlobalOptions(app, options);
    addRefreshCommand(app, chosen);
    addWatchCommand(app, chosen);
    addWireCommand(app, chosen);
    addStoryCommand(app, chosen);
    addMarkCommands(app, chosen);
    addSourcesCommand(app, chosen);
    addNewsroomCommand(app, chosen);
    addBeatCommand(app, chosen);
    addStatusCommand(app, chosen);
    addReleasesCommand(app, chosen);
    addEventsCommand(app, chosen);
    addQuoteCommand(app, chosen);
    addBoardCommand(app, chosen);
    addSigningCommand(app, chosen);
    addUpdatesCommand(app, chosen);
    addChartsCommand(app, chosen);
    addArchiveCommand(app, chosen);
    addTraceCommand(app, chosen);
    addSettingsCommand(app, chosen);
    addLibraryCommand(app, chosen);
    addInspectCommand(app, chosen);
    // After the subcommands, which would take it over.
    app.footer(
        "Every subcommand has a --help of its own. Exit status: 0 done, 1 the work failed, 2 wrong "
        "usage.");

    try {
        app.parse(argc, argv);
    } catch (const CLI::RequiredError& error) {
        // A word that is no subcommand would otherwise only be told that one is missing.
        const auto unknown = app.remaining();
        if (unknown.empty()) return app.exit(error) == 0 ? kDone : kWrongUsage;
        return complain(kWrongUsage,
                        "There is no subcommand named " + unknown.front() + ". See brell --help.");
    } catch (const CLI::ParseError& error) {
        // Help and version come the same way, with status 0.
        return app.exit(error) == 0 ? kDone : kWrongUsage;
    }
    return run(chosen, std::move(options));
}
