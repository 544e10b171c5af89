#include <memory>
#include <string>

#include "Tarnwick_Brell/CommandLine/AlertActions.h"
#include "Tarnwick_Brell/CommandLine/Command.h"

namespace cli {

namespace {

using SharedAlertOptions = std::shared_ptr<AlertActionOptions>;
using AlertAction = int (*)(Session&, const AlertActionOptions&);

arguments::Command addAlertAction(arguments::Command& alerts, Command& chosen,
                                  SharedAlertOptions options, const char* name, const char* meaning,
                                  AlertAction action) {
    auto command = alerts.subcommand(name, meaning);
    command.whenChosen([&chosen, options, action] {
        chosen = [options, action](Session& session) { return action(session, *options); };
    });
    return command;
}

void addRuleName(arguments::Command& command, const SharedAlertOptions& options) {
    command.option("NAME", options->name, "The rule's name or id").required();
}

}  // namespace

void addAlertsCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<AlertActionOptions>();
    auto alerts = app.subcommand("alerts", "List what you are told of, or change it");
    alerts.whenChosen([&chosen] { chosen = listAlerts; });

    auto make = addAlertAction(alerts, chosen, options, "new", "Make a rule", newAlert);
    make.option("NAME", options->name, "Its name").required();
    options->rule.addTriggerTo(make);
    options->rule.addDeliveryTo(make);
    make.flag("--off", options->off, "Do not switch it on yet");
    make.footer(
        "A rule is about stories (--any …, --beat), about what is logged (--kind, --words …) or "
        "about a price (--symbol with one condition). brell alerts test tries it on the past.");

    auto test =
        addAlertAction(alerts, chosen, options, "test",
                       "Show what a rule would have told lately; change nothing", rehearseAlert);
    test.option("NAME", options->name, "The rule; without it, say what it would tell of");
    options->rule.addTriggerTo(test);
    options->rule.addDeliveryTo(test);
    test.number("--days", options->days, {1, 90}, "How many days to look back");

    auto on = addAlertAction(alerts, chosen, options, "on", "Switch a rule on", switchAlertOn);
    addRuleName(on, options);
    auto off = addAlertAction(alerts, chosen, options, "off", "Switch a rule off", switchAlertOff);
    addRuleName(off, options);
    auto remove = addAlertAction(alerts, chosen, options, "remove", "Remove a rule", removeAlert);
    addRuleName(remove, options);
    auto restore =
        addAlertAction(alerts, chosen, options, "restore", "Restore a removed rule", restoreAlert);
    restore.option("NAME", options->name, "The rule; without it, the one removed last");

    auto history =
        addAlertAction(alerts, chosen, options, "history",
                       "What rules have matched in 90 days, and how it was told", showAlertHistory);
    history.option("NAME", options->name, "Only of this rule");
    history.number("--limit", options->limit, {1, 100'000}, "Show at most this many");
}

}  // namespace cli
