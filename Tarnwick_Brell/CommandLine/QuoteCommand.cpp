#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/QuoteText.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"

namespace cli {

namespace {

using kit::QuoteRange;
using kit::StockQuote;

struct QuoteOptions {
    std::optional<std::string> symbol;
    std::optional<std::string> range;
    bool stored = false;
};

/// Services know symbols in capital letters.
std::string knownForm(std::string symbol) {
    for (auto& letter : symbol) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    try {
        return app::SettingKey::named(app::SettingKey::kFocusSymbol)->stored(symbol);
    } catch (const std::invalid_argument&) {
        throw WrongUsage("\"" + symbol +
                         "\" is not the symbol of a share or an index. Symbols look like AAPL.");
    }
}

QuoteRange rangeNamed(const std::string& name) {
    if (const auto range = kit::enumFromRaw<QuoteRange>(name)) return *range;
    throw WrongUsage("There is no range named " + name + ". The ranges are 1d, 1w, 1m and 1y.");
}

boost::json::object quoteObject(const StockQuote& quote) {
    auto object = kit::encode(quote).get_object();
    object["open"] = quote.isOpen();
    if (const auto previous = quote.previousClose()) object["previousClose"] = *previous;
    return object;
}

int runQuote(Session& session, const QuoteOptions& options) {
    const auto& defaults = session.defaults();
    const auto symbol = options.symbol ? knownForm(*options.symbol) : defaults.focusSymbol();
    const auto range = options.range ? rangeNamed(*options.range) : defaults.quoteRange();
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
    addStoredFlag(command, options->stored);
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runQuote(session, *options); };
    });
}

}  // namespace cli
