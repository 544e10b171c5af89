#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "NewsroomKit/Panels/ActivityContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Shell/LogFile.h"

namespace cli {

namespace {

struct LogOptions {
    bool program = false;
    std::optional<std::string> levels;
    std::int64_t limit = 200;
    std::vector<std::string> kinds;
    std::string weight = "routine";
    std::string since;
    std::string search;
    bool links = false;
};

template <class E>
std::vector<std::string> rawValues() {
    std::vector<std::string> values;
    for (const auto& row : kit::enumTable<E>) values.emplace_back(row.raw);
    return values;
}

app::SignalSelection selectionFor(const LogOptions& options, kit::Instant now) {
    app::SignalSelection selection{
        .leastWeight = kit::enumFromRaw<kit::SignalWeight>(options.weight).value(),
        .search = app::SearchText::parse(options.search, app::SearchText::LastWord::complete,
                                         app::SearchText::Authors::none)};
    for (const auto& kind : options.kinds)
        selection.kinds.push_back(kit::enumFromRaw<kit::SignalKind>(kind).value());
    if (!options.since.empty()) selection.since = parseTimeArgument(options.since, now);
    if (selection.search.isEmpty() && !options.search.empty())
        throw WrongUsage("There is no word to search for in \"" + options.search + "\".");
    return selection;
}

void printSignals(Output& out, const std::vector<kit::ActivityRow>& rows, bool links) {
    TextTable table({Column::whole("seen"), Column::whole("kind").dropped(1),
                     Column::whole("weight").dropped(2), Column::cut("what", 32)});
    for (const auto& row : rows) {
        const auto& signal = row.logged.signal;
        table.add({momentText(signal.seenAt), std::string(label(signal.kind)),
                   std::string(rawValue(signal.weight)), printable(row.title)});
        if (links && signal.link) table.addNote("  " + printable(*signal.link));
    }
    table.print(out);
}

int showSignals(Session& session, const LogOptions& options) {
    auto& log = session.storeForReading().signalLog();
    const auto found =
        log.newest(static_cast<std::size_t>(options.limit), selectionFor(options, session.now()));
    auto& out = session.out();
    if (session.options().json) {
        boost::json::array records;
        for (const auto& logged : found) records.push_back(kit::encode(logged.signal));
        out.line(boost::json::serialize(records));
    } else if (!found.empty()) {
        printSignals(out, kit::activityRows(found, 0), options.links);
    } else if (log.lastNumber() == 0) {
        session.advise("Nothing has been logged yet: a change shows from the second fetch on.");
    } else {
        out.line("Nothing in the log matches.");
    }
    return kDone;
}

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
    auto command = app.subcommand("log", "What happened outside the wire, the last seen first");
    command
        .option("--kind", options->kinds,
                "Only of this kind: release, service, signing, …; may be repeated")
        .oneOf(rawValues<kit::SignalKind>());
    command.option("--weight", options->weight, "Only of at least this weight: notable or major")
        .oneOf(rawValues<kit::SignalWeight>());
    command
        .option("--since", options->since,
                "Only what was seen since: 30min, 6h, 2d, 1w, a day or a time")
        .shownAs("WHEN");
    command
        .option("--search", options->search,
                "Only with all these words in title, detail or subject. \"a phrase\" in quotes, "
                "begin* for beginnings, -without")
        .shownAs("TEXT");
    command.number("--limit", options->limit, {1, 100'000}, "Show at most this many");
    command.flag("--links", options->links, "Print each address below its line");
    auto program = command.flag("--program", options->program,
                                "Instead, the program's own log, newest lines last");
    command
        .option("--level", options->levels,
                "Of the program's log only lines of at least this level: error, warning, info, "
                "debug, or by category \"off,http=debug\"")
        .checked([](const std::string& text) { return kit::LogLevels::parseError(text); })
        .needs(program);
    command.footer(
        "The trackers log what changes between two answers: builds, service problems, signing, "
        "updates, charts, records. A build that changes for several devices within an hour is one "
        "line; --json has a record for each device.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) {
            return options->program ? showProgramLog(session, *options)
                                    : showSignals(session, *options);
        };
    });
}

}  // namespace cli
