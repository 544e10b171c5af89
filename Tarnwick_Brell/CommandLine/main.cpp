#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <string>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Shell/LaunchContext.h"

namespace {

using namespace cli;

/// Lines that begin a sentence begin with "brell: "; lists below them are indented.
int printError(int status, const std::string& sentence) {
    for (std::size_t begin = 0; begin <= sentence.size();) {
        const auto end = std::min(sentence.find('\n', begin), sentence.size());
        const auto line = sentence.substr(begin, end - begin);
        const auto indent = line.substr(0, line.find_first_not_of(' '));
        // Sentences may quote what came from the network.
        fmt::print(stderr, "{}{}{}\n", indent.empty() ? "brell: " : "", indent, printable(line));
        begin = end + 1;
    }
    return status;
}

/// Ends silently by SIGPIPE, like other programs whose reader has gone.
int endWithReader() {
    std::signal(SIGPIPE, SIG_DFL);
    std::raise(SIGPIPE);
    return kWorkFailed;
}

/// A file system's error, without the wording of the C++ library.
std::string fileSentence(const std::filesystem::filesystem_error& error) {
    return fmt::format("{} can't be used ({}).", error.path1().string(), error.code().message());
}

void addGlobalOptions(arguments::Command& app, GlobalOptions& options) {
    app.flag("--json", options.json, "Print one JSON value instead of text");
    app.flag("--utc", options.utc, "Read and print times in UTC instead of the local zone");
    app::addDeskOptions(app, options);
}

/// Prints pending output before a failure is reported.
int execute(const Command& command, Session& session) {
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

int attempt(const Command& command, const GlobalOptions& options) {
    const auto fail = [&](int status, const std::string& sentence) {
        return printError(status, withGivenOptions(sentence, options));
    };
    try {
        Session session(options);
        return execute(command, session);
    } catch (const ReaderGone&) {
        throw;
    } catch (const WrongUsage& error) {
        return fail(kWrongUsage, error.what());
    } catch (const app::OptionsClash& error) {
        return fail(kWrongUsage, error.what());
    } catch (const std::filesystem::filesystem_error& error) {
        return fail(kWorkFailed, fileSentence(error));
    } catch (const std::bad_alloc&) {
        return fail(kWorkFailed, "There is not enough memory.");
    } catch (const std::logic_error&) {
        return fail(kWorkFailed,
                    "brell has failed because of an internal error. Please report what you did.");
    } catch (const std::exception& error) {
        return fail(kWorkFailed, error.what());
    }
}

/// Long lines are hard to read, so the width is limited.
std::size_t helpWidth() {
    constexpr std::size_t widest = 100;
    const Output out;
    return out.isTerminal() ? std::min(out.width(), widest) : arguments::Parser::kHelpWidth;
}

/// Everything that reads and prints times goes by the zone of the process.
void useUTC() {
    setenv("TZ", "UTC", 1);
    tzset();
}

/// Prints help or the version.
int show(const std::string& text) {
    try {
        Output out;
        out.write(text);
        out.flush();
        return kDone;
    } catch (const ReaderGone&) {
        throw;
    } catch (const OutputError& error) {
        return printError(kWorkFailed, error.what());
    }
}

}  // namespace

int main(int argc, char** argv) {
    // A closed pipe becomes a failed write, so that the library is closed properly.
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
    addAlertsCommand(app, chosen);
    addStatusCommand(app, chosen);
    addReleasesCommand(app, chosen);
    addEventsCommand(app, chosen);
    addQuoteCommand(app, chosen);
    addMovesCommand(app, chosen);
    addBoardCommand(app, chosen);
    addSigningCommand(app, chosen);
    addFilingsCommand(app, chosen);
    addInsidersCommand(app, chosen);
    addCourtCommand(app, chosen);
    addPagesCommand(app, chosen);
    addPressCommand(app, chosen);
    addBackendCommand(app, chosen);
    addUpdatesCommand(app, chosen);
    addChartsCommand(app, chosen);
    addArchiveCommand(app, chosen);
    addTraceCommand(app, chosen);
    addTopCommand(app, chosen);
    addScoopsCommand(app, chosen);
    addRacesCommand(app, chosen);
    addLedgerCommand(app, chosen);
    addTimelineCommand(app, chosen);
    addTextCommand(app, chosen);
    addCoverageCommand(app, chosen);
    addClipsCommand(app, chosen);
    addNotesCommand(app, chosen);
    addProjectsCommand(app, chosen);
    addSearchCommand(app, chosen);
    addCorrectCommand(app, chosen);
    addSettingsCommand(app, chosen);
    addLogCommand(app, chosen);
    addLibraryCommand(app, chosen);
    addInspectCommand(app, chosen);
    app.footer(
        "Every subcommand has a --help of its own.\n\nExit status: 0 done, 1 the work failed, 2 "
        "wrong usage, including a story, source, beat or newsroom that doesn't exist.");

    try {
        const auto text = parser.parse(argc, argv, helpWidth());
        if (options.utc) useUTC();
        return text ? show(*text) : attempt(chosen, options);
    } catch (const ReaderGone&) {
        return endWithReader();
    } catch (const arguments::UsageError& error) {
        return printError(kWrongUsage, error.what());
    }
}
