#include <memory>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/AnalysisText.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/QuoteOptions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Desk/MoveReader.h"

namespace cli {

namespace {

using kit::MoveRow;
using kit::QuoteRange;
using kit::StockQuote;

struct MovesOptions {
    std::optional<std::string> symbol;
    std::optional<std::string> range;
    bool stored = false;
};

boost::json::object moveRecord(const MoveRow& row) {
    auto record = kit::encode(row.move).get_object();
    boost::json::array reasons;
    for (const auto& reason : row.reasons) {
        boost::json::array stories;
        for (const auto& story : reason.stories) stories.push_back(mentionRecord(story));
        reasons.push_back(boost::json::object{{"reason", kit::rawValue(reason.reason)},
                                              {"sourcing", kit::rawValue(reason.sourcing)},
                                              {"outlets", reason.outlets},
                                              {"stories", std::move(stories)}});
    }
    record["reasons"] = std::move(reasons);
    record["storiesOfCompany"] = row.stories;
    return record;
}

boost::json::object movesObject(const StockQuote& quote, const std::vector<MoveRow>& rows) {
    boost::json::array moves;
    for (const auto& row : rows) moves.push_back(moveRecord(row));
    return {{"symbol", quote.symbol}, {"name", quote.name}, {"moves", std::move(moves)}};
}

void addMove(TextTable& table, const MoveRow& row) {
    const auto usual = row.timesUsual ? fmt::format("{:.1f}", *row.timesUsual) : "";
    const auto change = percentText(row.move.change);
    if (row.reasons.empty()) {
        table.add({row.move.day, change, usual, "", "No reported reason.", "", ""});
        return;
    }
    bool isFirst = true;
    for (const auto& reason : row.reasons) {
        table.add({isFirst ? row.move.day : "", isFirst ? change : "", isFirst ? usual : "",
                   std::string(kit::label(reason.reason)), printable(reason.lead.title),
                   printable(reason.lead.outlet) +
                       (reason.outlets > 1 ? fmt::format(" +{}", reason.outlets - 1) : ""),
                   reason.lead.storyID});
        isFirst = false;
    }
}

void printMoves(Session& session, const StockQuote& quote, const std::vector<MoveRow>& rows) {
    auto& out = session.out();
    if (rows.empty()) {
        out.line(fmt::format("{} has no unusual moves in that time.", printable(quote.symbol)));
        return;
    }
    out.line(fmt::format("{}  {}, {} on a usual day", out.bold(printable(quote.symbol)),
                         printable(quote.name), fmt::format("{:.1f} %", rows[0].move.usual)));
    TextTable table({Column::whole("day"), Column::whole("change"),
                     Column::whole("times usual").dropped(3), Column::whole("reason"),
                     Column::cut("headline", 24), Column::cut("first").dropped(2),
                     Column::whole("story").dropped(1)});
    for (const auto& row : rows) addMove(table, row);
    table.print(out);
}

int runMoves(Session& session, const MovesOptions& options) {
    const auto symbol =
        options.symbol ? knownSymbol(*options.symbol) : session.defaults().focusSymbol();
    const auto range = options.range ? rangeNamed(*options.range) : QuoteRange::year;
    const auto from = kit::movesFrom(range, session.now());
    const auto reading = fetchOrLoad(session, options.stored, [&](const auto& files) {
        return files.quote(symbol, QuoteRange::year);
    });
    const auto movesOf = [&](const StockQuote& quote) {
        return app::readMoves(session.storeForReading(), quote, from);
    };
    return showTracker<StockQuote>(
        session, options.stored, reading,
        {.json = [&](const StockQuote& quote) { return movesObject(quote, movesOf(quote)); },
         .text = [&](const StockQuote& quote) { printMoves(session, quote, movesOf(quote)); }});
}

}  // namespace

void addMovesCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<MovesOptions>();
    auto command =
        app.subcommand("moves", "Days on which a share moved unusually far, and what was reported");
    command.option("SYMBOL", options->symbol,
                   "For example AAPL, ^GSPC or 005930.KS; the setting focusSymbol by default");
    command.option("--range", options->range, "How far back: 1d, 1w, 1m, 1y; a year by default")
        .shownAs("RANGE");
    addStoredFlag(command, options->stored);
    command.footer(
        "A day counts when its change is at least 1.5 % and twice the usual one of the year.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runMoves(session, *options); };
    });
}

}  // namespace cli
