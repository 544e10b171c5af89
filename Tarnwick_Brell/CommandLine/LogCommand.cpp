#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Shell/LogFile.h"

namespace cli {

namespace {

struct LogOptions {
    bool program = false;
    std::optional<std::string> levels;
    std::int64_t limit = 200;
};

boost::json::object jsonOf(const kit::LogLine& line) {
    return {{"time", kit::iso8601Text(line.time)},
            {"level", kit::rawValue(line.level)},
            {"category", kit::rawValue(line.category)},
            {"text", line.text}};
}

int showProgramLog(Session& session, const LogOptions& options) {
    const auto lines =
        app::readLogFile(session.paths().log, static_cast<std::size_t>(options.limit),
                         kit::LogLevels::parse(options.levels.value_or("debug")));
    if (session.options().json) {
        boost::json::array array;
        for (const auto& line : lines) array.push_back(jsonOf(line));
        session.out().line(boost::json::serialize(array));
        return kDone;
    }
    for (const auto& line : lines) {
        session.out().line(fmt::format("{}  {:<7}  {:<13}  {}", kit::iso8601Text(line.time),
                                       kit::rawValue(line.level), kit::rawValue(line.category),
                                       printable(line.text)));
    }
    if (lines.empty()) session.out().line("The log has no such lines.");
    return kDone;
}

}  // namespace

void addLogCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<LogOptions>();
    auto command = app.subcommand("log", "Show what the program has done recently");
    command.flag("--program", options->program, "The program's own log, newest lines last")
        .required();
    command
        .option("--level", options->levels,
                "Only lines of at least this level: error, warning, info, debug, or by category "
                "\"off,http=debug\"")
        .checked([](const std::string& text) { return kit::LogLevels::parseError(text); });
    command.number("--limit", options->limit, {1, 100'000}, "Show at most this many lines");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return showProgramLog(session, *options); };
    });
}

}  // namespace cli
