#pragma once

#include <optional>
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

/// What `brell sources set` changes; absent: as it is. "usual" is what the catalogue says.
struct SourceWishes {
    std::optional<std::string> onlyApple{};  ///< "yes", "no", "usual"
    std::optional<std::string> inAll{};      ///< "yes", "no"
    std::optional<std::string> interval{};   ///< minutes, or "usual"
};

/// What is wrong with an interval as it is typed; empty when nothing is.
std::string intervalComplaint(const std::string& typed);

int setSourceOptions(Session& session, const std::vector<std::string>& ids,
                     const SourceWishes& wishes);
int switchSources(Session& session, const std::vector<std::string>& ids, bool enabled);
int renameSource(Session& session, const std::string& id, const std::string& name);
int removeSources(Session& session, const std::vector<std::string>& ids);

int importSources(Session& session, const std::string& file, bool preview);
int exportSources(Session& session, app::ExportScope scope, bool withSecrets);

}  // namespace cli
