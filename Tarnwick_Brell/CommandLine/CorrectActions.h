#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Attribution/Correction.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

/// The actions of `brell correct` and its subcommands; each returns the exit status.
namespace cli {

struct CorrectOptions {
    std::vector<std::string> stories{};
    std::string correction{};
    std::string outlet{};
    std::string link{};
    std::string at{};
    std::string name{};
    std::string by{};
    std::string kind{};
    std::string sourcing{};
    std::string note{};
};

int listCorrections(Session& session);
int exportCorrections(Session& session);
int makeCorrection(Session& session, kit::Correction::Kind kind, const CorrectOptions& options);
int undoCorrection(Session& session, const CorrectOptions& options);
int redoCorrection(Session& session, const CorrectOptions& options);

}  // namespace cli
