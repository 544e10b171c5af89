#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::SigningStatus;
using Readings = NamedReadings<SigningStatus>;

struct SigningOptions {
    std::string device;
    bool history = false;
    bool stored = false;
};

boost::json::object objectOf(const NamedReading<SigningStatus>& device) {
    boost::json::object object{{"device", device.name}};
    if (const auto& status = device.reading.value) {
        object["name"] = status->name;
        object["builds"] = kit::encode(status->builds);
    }
    addFetchState(object, {device.reading.fetchedAt, device.reading.error});
    return object;
}

std::string signedBuildsText(const SigningStatus& status) {
    std::string text;
    for (const auto& build : status.builds) {
        if (!build.isSigned) continue;
        text += (text.empty() ? "" : ", ") + printable(build.version) + " (" +
                printable(build.build) + ")";
    }
    return text.empty() ? "nothing" : text;
}

void printOverview(Output& out, const Readings& readings) {
    TextTable table(
        {Column::cut("device", 14).dropped(1), Column::whole("model"), Column::cut("signed", 20)});
    for (const auto& [device, reading] : readings) {
        if (!reading.value) {
            table.add({"", device, "not known"});
            continue;
        }
        table.add({printable(reading.value->name), device, signedBuildsText(*reading.value)});
    }
    table.print(out);
}

void printDevice(Output& out, const NamedReading<SigningStatus>& device) {
    const auto& status = *device.reading.value;
    out.line(out.bold(printable(status.name) + " (" + device.name + ")"));
    out.line();
    if (status.builds.empty()) {
        out.line("The service has no firmware for it.");
        return;
    }
    TextTable table({Column::cut("version", 8), Column::whole("build"), Column::whole("signed"),
                     Column::whole("released")});
    for (const auto& build : status.builds) {
        table.add({printable(build.version), printable(build.build), build.isSigned ? "yes" : "no",
                   build.released ? namedDayText(*build.released) : ""});
    }
    table.print(out);
}

int showSigning(Session& session, const SigningOptions& options) {
    const bool isOne = !options.device.empty();
    const auto devices = isOne ? std::vector{options.device} : session.defaults().signingDevices();
    const auto readings = fetchOrLoadEach<SigningStatus>(
        session, options.stored, devices,
        [](const auto& files, const std::string& device) { return files.signing(device); });
    requireSome(readings, options.stored);
    auto& out = session.out();
    if (session.options().json) {
        boost::json::array list;
        for (const auto& device : readings) list.push_back(objectOf(device));
        out.line(isOne ? boost::json::serialize(list.front())
                       : boost::json::serialize(boost::json::object{{"devices", list}}));
    } else if (isOne) {
        printDevice(out, readings.front());
    } else {
        printOverview(out, readings);
    }
    return finishTrackers(session, options.stored, fetchStatesOf(readings));
}

int showHistory(Session& session, const SigningOptions& options) {
    // Some dozens of devices have some dozens of builds a year each.
    constexpr std::size_t most = 10'000;
    const auto changes = session.storeForReading().signing().newest(most, options.device);
    auto& out = session.out();
    if (session.options().json) {
        out.line(boost::json::serialize(kit::encode(changes)));
        return kDone;
    }
    if (changes.empty()) {
        session.advise("No change has been seen yet. brell signing checks for changes.");
        return kDone;
    }
    TextTable table({Column::cut("device", 14).dropped(1), Column::whole("model"),
                     Column::cut("version", 8), Column::whole("build").dropped(2),
                     Column::whole(""), Column::whole("seen")});
    for (const auto& change : changes) {
        table.add({printable(change.deviceName), printable(change.device),
                   printable(change.version), printable(change.build),
                   change.isSigned ? "now signed" : "no longer signed", momentText(change.seenAt)});
    }
    table.print(out);
    return kDone;
}

int runSigning(Session& session, const SigningOptions& options) {
    if (!options.device.empty() && !kit::isDeviceIdentifier(options.device)) {
        throw WrongUsage("\"" + options.device +
                         "\" is not a device model. Models look like iPhone18,3.");
    }
    return options.history ? showHistory(session, options) : showSigning(session, options);
}

}  // namespace

void addSigningCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<SigningOptions>();
    auto command = app.subcommand("signing", "Which firmware Apple still signs");
    command.option("DEVICE", options->device,
                   "A model such as iPhone18,3; without it, an overview of the models that "
                   "the setting signingDevices names");
    auto history =
        command.flag("--history", options->history,
                     "Instead, every change that this desk has ever seen, the newest first");
    addStoredFlag(command, options->stored).excludes(history);
    command.footer(
        "A build counts as gone or as no longer signed once a second check confirms it.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runSigning(session, *options); };
    });
}

}  // namespace cli
