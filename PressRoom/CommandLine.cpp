#include "PressRoom/CommandLine.h"

#include <iostream>
#include <utility>

#include "Tarnwick_Brell/Arguments/Arguments.h"

namespace pressroom {
namespace {

std::string misbehaviourKinds() {
    std::string lines;
    for (const auto& row : kit::enumTable<MisbehaviourKind>) {
        lines += "    " + std::string(row.raw) + std::string(13 - row.raw.size(), ' ') +
                 std::string(row.label) + "\n";
    }
    return lines;
}

/// "ID=KIND", or nothing.
std::optional<std::pair<std::string, Misbehaviour>> readMisbehaving(const std::string& text) {
    const auto equals = text.rfind('=');
    if (equals == std::string::npos || equals == 0) return std::nullopt;
    const auto misbehaviour = readMisbehaviour(text.substr(equals + 1));
    if (!misbehaviour) return std::nullopt;
    return std::pair(text.substr(0, equals), *misbehaviour);
}

std::string requireFolder(const std::string& text) {
    return std::filesystem::is_directory(text) ? "" : "there is no folder " + text;
}

void addPlaces(arguments::Command& program, CommandLine& options) {
    program
        .option("--files", options.files,
                "also serve the files of this folder, at https://files.press-room.example/")
        .shownAs("DIR")
        .checked(requireFolder);
    program.option("--world", options.world, "folder of the sample world")
        .shownAs("DIR")
        .checked(requireFolder);
    program
        .option("--ca-dir", options.authorityDirectory,
                "where authority.pem and private-authority.pem are written; a temporary folder by "
                "default")
        .shownAs("DIR");
}

void addTimes(arguments::Command& program, CommandLine& options) {
    program
        .number("--anchor", options.anchor,
                "reference time of the world in seconds since 1970; by default the start")
        .shownAs("SECONDS");
    program.number("--speed", options.speed, {0.01, 100000.0},
                   "how many times faster than real time the world runs");
    program
        .number("--delay", options.delay, {0, 60000},
                "delay of each answer in milliseconds, as on a slow network")
        .shownAs("MS");
    program
        .number("--clock-ahead", options.clockAhead, {-36500, 36500},
                "days by which the dates of answers are ahead of this computer's clock")
        .shownAs("DAYS");
}

void addConduct(arguments::Command& program, CommandLine& options,
                std::vector<std::string>& misbehaving) {
    program.flag("--private-catalogue", options.privateCatalogue,
                 "certify gdmf.apple.com by the private authority, as in reality");
    program.flag("--ready-json", options.readyJSON,
                 "announce the port and the authorities as one JSON line");
    program.flag("--exit-with-parent", options.exitWithParent, "end when standard input closes");
    program
        .option("--misbehave", misbehaving,
                "make a source, a tracker (status, developer-status, releases, events, quote, "
                "quotes, signing, updates, charts, filings, filings-archive, court, court-feeds, "
                "press) or "
                "the archive (archive-stories, "
                "archive-status, archive-credits, archive-trace) misbehave (repeatable); KIND is "
                "one of those below")
        .shownAs("ID=KIND")
        .checked([](const std::string& text) {
            return readMisbehaving(text) ? "" : "\"" + text + "\" is not ID=KIND";
        });
    program.flag("--log", options.log, "write a line per request to standard error");
    program.footer(
        "Kinds of --misbehave; busy and unavailable take seconds (busy:30), slow takes\n"
        "milliseconds (slow:1500):\n" +
        misbehaviourKinds());
}

}  // namespace

std::variant<CommandLine, int> readCommandLine(int argc, char** argv) {
    CommandLine options;
    std::vector<std::string> misbehaving;
    arguments::Parser parser(
        "pressroom",
        "The press room: a loopback HTTPS server with a sample world of news.\n"
        "It answers for every host of the desk's catalogue, so that the desk can be\n"
        "tried without a network. Certificates come from an authority made at start.");
    auto program = parser.root();
    program.number("--port", options.port, {0, 65535}, "TCP port on 127.0.0.1; 0 picks a free one");
    addPlaces(program, options);
    addTimes(program, options);
    addConduct(program, options, misbehaving);
    try {
        if (const auto text = parser.parse(argc, argv)) {
            std::cout << *text;
            return 0;
        }
    } catch (const arguments::UsageError& error) {
        std::cerr << "pressroom: " << error.what() << '\n';
        return 2;
    }
    for (const auto& text : misbehaving) {
        const auto [id, misbehaviour] = *readMisbehaving(text);
        options.misbehaviours.insert_or_assign(id, misbehaviour);
    }
    return options;
}

}  // namespace pressroom
