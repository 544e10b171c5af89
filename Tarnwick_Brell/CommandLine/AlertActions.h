#pragma once

#include <cstdint>
#include <string>

#include "Tarnwick_Brell/CommandLine/AlertOptions.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

/// The actions of `brell alerts` and its subcommands; each returns the exit status.
namespace cli {

struct AlertActionOptions {
    std::string name{};
    bool off = false;
    std::int64_t days = 14;
    std::int64_t limit = 50;
    AlertOptions rule{};
};

int listAlerts(Session& session);
int newAlert(Session& session, const AlertActionOptions& options);
/// Shows what a rule, or one that might be made, would have told lately.
int rehearseAlert(Session& session, const AlertActionOptions& options);
int switchAlertOn(Session& session, const AlertActionOptions& options);
int switchAlertOff(Session& session, const AlertActionOptions& options);
int removeAlert(Session& session, const AlertActionOptions& options);
int restoreAlert(Session& session, const AlertActionOptions& options);
int showAlertHistory(Session& session, const AlertActionOptions& options);

}  // namespace cli
