#pragma once

#include <functional>

#include "Tarnwick_Brell/Arguments/Arguments.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

namespace cli {

/// Runs a subcommand once the command line has been read; returns the exit status.
using Command = std::function<int(Session&)>;

/// Each adds its subcommand to `app` and, when the user chose it, sets `chosen`.
void addRefreshCommand(arguments::Command& app, Command& chosen);
void addWatchCommand(arguments::Command& app, Command& chosen);
void addWireCommand(arguments::Command& app, Command& chosen);
void addStoryCommand(arguments::Command& app, Command& chosen);
void addMarkCommands(arguments::Command& app, Command& chosen);
void addSourcesCommand(arguments::Command& app, Command& chosen);
void addStatusCommand(arguments::Command& app, Command& chosen);
void addReleasesCommand(arguments::Command& app, Command& chosen);
void addEventsCommand(arguments::Command& app, Command& chosen);
void addQuoteCommand(arguments::Command& app, Command& chosen);
void addMovesCommand(arguments::Command& app, Command& chosen);
void addBoardCommand(arguments::Command& app, Command& chosen);
void addSigningCommand(arguments::Command& app, Command& chosen);
void addFilingsCommand(arguments::Command& app, Command& chosen);
void addInsidersCommand(arguments::Command& app, Command& chosen);
void addCourtCommand(arguments::Command& app, Command& chosen);
void addPagesCommand(arguments::Command& app, Command& chosen);
void addPressCommand(arguments::Command& app, Command& chosen);
void addBackendCommand(arguments::Command& app, Command& chosen);
void addUpdatesCommand(arguments::Command& app, Command& chosen);
void addChartsCommand(arguments::Command& app, Command& chosen);
void addArchiveCommand(arguments::Command& app, Command& chosen);
void addTextCommand(arguments::Command& app, Command& chosen);
void addTraceCommand(arguments::Command& app, Command& chosen);
void addTopCommand(arguments::Command& app, Command& chosen);
void addScoopsCommand(arguments::Command& app, Command& chosen);
void addRacesCommand(arguments::Command& app, Command& chosen);
void addLedgerCommand(arguments::Command& app, Command& chosen);
void addTimelineCommand(arguments::Command& app, Command& chosen);
void addCoverageCommand(arguments::Command& app, Command& chosen);
void addCorrectCommand(arguments::Command& app, Command& chosen);
void addSettingsCommand(arguments::Command& app, Command& chosen);
void addNewsroomCommand(arguments::Command& app, Command& chosen);
void addAlertsCommand(arguments::Command& app, Command& chosen);
void addBeatCommand(arguments::Command& app, Command& chosen);
void addLogCommand(arguments::Command& app, Command& chosen);
void addClipsCommand(arguments::Command& app, Command& chosen);
void addNotesCommand(arguments::Command& app, Command& chosen);
void addProjectsCommand(arguments::Command& app, Command& chosen);
void addSearchCommand(arguments::Command& app, Command& chosen);
void addLibraryCommand(arguments::Command& app, Command& chosen);
void addInspectCommand(arguments::Command& app, Command& chosen);

}  // namespace cli
