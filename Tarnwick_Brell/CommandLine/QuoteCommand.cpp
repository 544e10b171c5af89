#include <memory>
#include <optional>
#include <string>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/QuoteComparison.h"
#include "Tarnwick_Brell/CommandLine/QuoteOptions.h"
#include "Tarnwick_Brell/CommandLine/QuoteText.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"

namespace cli {

namespace {

using kit::QuoteRange;
using kit::StockQuote;

struct QuoteOptions {
    std::optional<std::string> symbol;
    std::optional<std::string> range;
    std::string compared;
    bool stored = false;
};

boost::json::object quoteObject(const StockQuote& quote) {
    auto object = kit::encode(quote).get_object();
    object["open"] = quote.isOpen();
    if (const auto previous = quote.previousClose()) object["previousClose"] = *previous;
    return object;
}

int runQuote(Session& session, const QuoteOptions& options) {
    const auto& defaults = session.defaults();
    const auto symbol = options.symbol ? knownSymbol(*options.symbol) : defaults.focusSymbol();
    const auto range = options.range ? rangeNamed(*options.range) : defaults.quoteRange();
    if (!options.compared.empty()) {
        return runComparison(session, options.stored, range, symbol, options.compared);
    }
    const auto reading = fetchOrLoad(session, options.stored,
                                     [&](const auto& files) { return files.quote(symbol, range); });
    return showTracker<StockQuote>(session, options.stored, reading,
                                   {.json = quoteObject, .text = [&](const StockQuote& quote) {
                                        printQuote(session.out(), quote, session.now());
                                    }});
}

}  // namespace

void addQuoteCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<QuoteOptions>();
    auto command = app.subcommand("quote", "The price of a share, with a chart");
    command.option("SYMBOL", options->symbol,
                   "For example AAPL, ^GSPC or 005930.KS; the setting focusSymbol by default");
    command
        .option("--range", options->range,
                "A day, a week, a month or a year: 1d, 1w, 1m, 1y; the setting quoteRange by "
                "default")
        .shownAs("RANGE");
    command
        .option("--compare", options->compared,
                "Changes beside those of up to six other symbols, in per cent from the beginning "
                "of the range")
        .shownAs("SYMBOL,…");
    addStoredFlag(command, options->stored);
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runQuote(session, *options); };
    });
}

}  // namespace cli
