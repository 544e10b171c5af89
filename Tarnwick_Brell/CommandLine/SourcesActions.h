#pragma once

#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Desk/SourceImport.h"

/// The actions of `brell sources` and its subcommands; each returns the exit status.
namespace cli {

int listSources(Session& session);
int showSourceConsole(Session& session);

int checkAddress(Session& session, const std::string& address);
int addSources(Session& session, const std::vector<std::string>& addresses, bool unchecked);

int switchSources(Session& session, const std::vector<std::string>& ids, bool enabled);
int renameSource(Session& session, const std::string& id, const std::string& name);
int removeSources(Session& session, const std::vector<std::string>& ids);

int importSources(Session& session, const std::string& file, bool preview);
int exportSources(Session& session, app::ExportScope scope, bool withSecrets);

}  // namespace cli
