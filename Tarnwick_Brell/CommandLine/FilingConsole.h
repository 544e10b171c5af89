#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"
#include "NewsroomKit/PressWires/PressRelease.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"

/// Shared by `brell filings` and `brell insiders`.
namespace cli {

struct FilingView {
    std::vector<FetchState> states;
    std::vector<kit::FollowedFiling> filings;
    std::vector<kit::PressRelease> releases;  ///< of wires, which may carry the same texts
};

/// All that the library holds, without states.
FilingView storedFilings(app::LocalStore& store);

/// Fetches the feeds of the companies that `company` names, or only loads what they have listed.
/// Throws WorkFailed when the SEC may not be asked, or when nothing has ever been fetched.
FilingView readFilings(Session& session, bool isStored, const std::string& company);

struct FilingDetailOptions {
    std::string accession;
    std::string document;  ///< its type; empty for the first
    bool stored = false;
};

/// `brell filings --show`: all that is known of one filing, with the text of a document.
int showFiling(Session& session, const FilingDetailOptions& options);

/// The user's mail address. Throws WorkFailed when there is none.
std::string requiredContact(Session& session);

}  // namespace cli
