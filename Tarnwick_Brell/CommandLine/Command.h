#pragma once

#include <functional>

#include "Tarnwick_Brell/CommandLine/Session.h"

namespace CLI {
class App;
}

namespace brell {

/// What a subcommand does once the command line is read; the exit status.
using Command = std::function<int(Session&)>;

/// Each adds its subcommand to `app` and, when the user chose it, sets `chosen`.
void addRefreshCommand(CLI::App& app, Command& chosen);
void addWatchCommand(CLI::App& app, Command& chosen);
void addWireCommand(CLI::App& app, Command& chosen);
void addStoryCommand(CLI::App& app, Command& chosen);
void addMarkCommands(CLI::App& app, Command& chosen);
void addSourcesCommand(CLI::App& app, Command& chosen);
void addStatusCommand(CLI::App& app, Command& chosen);
void addReleasesCommand(CLI::App& app, Command& chosen);
void addEventsCommand(CLI::App& app, Command& chosen);
void addQuoteCommand(CLI::App& app, Command& chosen);
void addBoardCommand(CLI::App& app, Command& chosen);
void addSigningCommand(CLI::App& app, Command& chosen);
void addUpdatesCommand(CLI::App& app, Command& chosen);
void addChartsCommand(CLI::App& app, Command& chosen);
void addArchiveCommand(CLI::App& app, Command& chosen);
void addTraceCommand(CLI::App& app, Command& chosen);
void addSettingsCommand(CLI::App& app, Command& chosen);
void addNewsroomCommand(CLI::App& app, Command& chosen);
void addBeatCommand(CLI::App& app, Command& chosen);
void addLibraryCommand(CLI::App& app, Command& chosen);
void addInspectCommand(CLI::App& app, Command& chosen);

}  // namespace brell
