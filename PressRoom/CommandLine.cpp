#include "PressRoom/CommandLine.h"

#include <CLI/CLI.hpp>

namespace pressroom {
namespace {

std::string misbehaviourKinds() {
    std::string lines;
    for (const auto& row : newsroom::enumTable<MisbehaviourKind>) {
        lines += "    " + std::string(row.raw) + std::string(13 - row.raw.size(), ' ') +
                 std::string(row.label) + "\n";
    }
    return lines;
}

/// Takes "ID=KIND"; the complaint when it is none.
std::string addMisbehaviour(const std::string& text, Misbehaviours& misbehaviours) {
    const auto equals = text.rfind('=');
    const auto read =
        equals == std::string::npos ? std::nullopt : readMisbehaviour(text.substr(equals + 1));
    if (!read || equals == 0) return "\"" + text + "\" is no ID=KIND";
    misbehaviours.insert_or_assign(text.substr(0, equals), *read);
    return "";
}

}  // namespace

std::variant<CommandLine, int> readCommandLine(int argc, char** argv) {
    CommandLine options;
    CLI::App app(
        "The press room: a loopback HTTPS server with a sample world of news.\n"
        "It answers for every host of the desk's catalogue, so that the desk can be\n"
        "tried without a network. Certificates come from an authority made at start.");
    app.name("pressroom");
    app.add_option("--port", options.port, "TCP port on 127.0.0.1; 0 picks a free one")
        ->capture_default_str();
    app.add_option("--files", options.files,
                   "also serve the files of this folder, at https://files.press-room.example/")
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory);
    app.add_option("--world", options.world, "folder of the sample world")
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory);
    app.add_option(
           "--anchor", options.anchor,
           "moment the world's times count from, in seconds since 1970; the start by default")
        ->type_name("SECONDS");
    app.add_option("--speed", options.speed, "how many times faster than real time the world runs")
        ->capture_default_str()
        ->type_name("N")
        ->check(CLI::Range(0.01, 100000.0));
    app.add_option("--delay", options.delay,
                   "milliseconds before each answer, as a far network has them")
        ->capture_default_str()
        ->type_name("MS")
        ->check(CLI::Range(0, 60000));
    app.add_option("--ca-dir", options.authorityDirectory,
                   "where authority.pem and private-authority.pem are written; a temporary folder "
                   "by default")
        ->type_name("DIR");
    app.add_flag("--private-catalogue", options.privateCatalogue,
                 "certify gdmf.apple.com by the private authority, as in the field");
    app.add_flag("--ready-json", options.readyJSON,
                 "announce the port and the authorities as one JSON line");
    app.add_flag("--exit-with-parent", options.exitWithParent, "end when standard input closes");
    app.add_option_function<std::vector<std::string>>(
           "--misbehave",
           [&options](const std::vector<std::string>& all) {
               for (const auto& text : all) {
                   const auto complaint = addMisbehaviour(text, options.misbehaviours);
                   if (!complaint.empty()) throw CLI::ValidationError("--misbehave", complaint);
               }
           },
           "let a source, a tracker (status, developer-status, releases, events, quote, quotes, "
           "signing, updates, charts) or the archive (archive-stories, archive-status, "
           "archive-credits, archive-trace) go wrong (repeatable); KIND is one of those below")
        ->type_name("ID=KIND")
        ->allow_extra_args(false);
    app.add_flag("--log", options.log, "write a line per request to standard error");
    app.footer(
        "Kinds of --misbehave; busy and unavailable take seconds (busy:30), slow takes\n"
        "milliseconds (slow:1500):\n" +
        misbehaviourKinds());
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& complaint) {
        return app.exit(complaint) == 0 ? 0 : 2;
    }
    return options;
}

}  // namespace pressroom
