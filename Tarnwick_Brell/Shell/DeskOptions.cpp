#include "Tarnwick_Brell/Shell/DeskOptions.h"

#include <CLI/CLI.hpp>

namespace desk {

namespace {

/// An empty host would quietly mean the real one.
std::string hostAndPort(const std::string& text) {
    const auto colon = text.rfind(':');
    const bool hasHost = colon != std::string::npos && colon > 0;
    const auto port = hasHost ? text.substr(colon + 1) : std::string();
    const bool digits = !port.empty() && port.size() <= 5 &&
                        port.find_first_not_of("0123456789") == std::string::npos;
    const bool good = digits && std::stoi(port) >= 1 && std::stoi(port) <= 65535;
    return good ? "" : "\"" + text + "\" is no HOST:PORT";
}

}  // namespace

void addDeskOptions(CLI::App& app, DeskOptions& options) {
    app.add_option("--data-dir", options.dataDir, "Keep library and settings in this folder")
        ->type_name("DIR")
        ->check([](const std::string& text) {
            return text.empty() ? std::string("the folder's name is empty") : std::string();
        });
    app.add_flag("--demo", options.demo,
                 "Use the bundled press room and a store of its own; needs no network");
    app.add_option("--connect-to", options.connectTo, "Send every connection to this address")
        ->type_name("HOST:PORT")
        ->check(hostAndPort);
    app.add_option("--ca-file", options.caFile, "Certificate authority to trust for it")
        ->type_name("FILE");
}

}  // namespace desk
