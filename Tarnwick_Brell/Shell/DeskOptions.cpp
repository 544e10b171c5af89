#include "Tarnwick_Brell/Shell/DeskOptions.h"

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Arguments/Arguments.h"

namespace app {

namespace {

/// Refuses an empty host, which would silently mean the real one.
std::string hostAndPort(const std::string& text) {
    const auto colon = text.rfind(':');
    const bool hasHost = colon != std::string::npos && colon > 0;
    const auto port = hasHost ? text.substr(colon + 1) : std::string();
    const bool digits = !port.empty() && port.size() <= 5 &&
                        port.find_first_not_of("0123456789") == std::string::npos;
    const bool good = digits && std::stoi(port) >= 1 && std::stoi(port) <= 65535;
    return good ? "" : "\"" + text + "\" is not HOST:PORT";
}

}  // namespace

void addDeskOptions(arguments::Command& program, DeskOptions& options) {
    program.option("--data-dir", options.dataDir, "Keep library and settings in this folder")
        .shownAs("DIR");
    program.flag("--demo", options.demo,
                 "Use the bundled press room and a store of its own; needs no network");
    program.option("--connect-to", options.connectTo, "Send every connection to this address")
        .shownAs("HOST:PORT")
        .mayBeEmpty()
        .checked(hostAndPort);
    program.option("--ca-file", options.caFile, "Certificate authority to trust for it");
    program
        .option(
            "--log", options.log,
            "Print the program's log as well: a level (error, warning, info, debug) or levels of "
            "categories (warning,http=debug)")
        .shownAs("LEVELS")
        .checked([](const std::string& text) { return kit::LogLevels::parseError(text); });
}

}  // namespace app
