#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>

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

void addGlobalOptions(arguments::Command& app, GlobalOptions& options) {
    app.flag("--json", options.json, "Print one JSON value instead of text");
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

    arguments::Parser parser("brell", "A news desk for people who follow Apple closely.");
    parser.setVersion(std::string("brell ") + BRELL_VERSION);
    auto app = parser.root();
    app.requireSubcommand();

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
    app.footer(
        "Every subcommand has a --help of its own. Exit status: 0 done, 1 the work failed, 2 wrong "
        "usage.");

    try {
        if (const auto text = parser.parse(argc, argv)) {
            fmt::print("{}", *text);
            return kDone;
        }
    } catch (const arguments::UsageError& error) {
        return complain(kWrongUsage, error.what());
    }
    return run(chosen, std::move(options));
}
