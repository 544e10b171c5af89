#include "Tarnwick_Brell/CommandLine/QuoteText.h"

#include <array>

#include <fmt/format.h>

#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/CommandLine/QuoteChart.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::StockQuote;

std::string volumeText(double volume) {
    struct Unit {
        double size;
        const char* name;
    };
    constexpr std::array units{Unit{1e9, "billion"}, Unit{1e6, "million"}, Unit{1e3, "thousand"}};
    for (const auto& [size, name] : units) {
        if (volume >= size) return fmt::format("{:.1f} {}", volume / size, name);
    }
    return fmt::format("{:.0f}", volume);
}

std::string spreadText(std::optional<double> low, std::optional<double> high) {
    return low && high ? priceText(*low) + " to " + priceText(*high) : "";
}

void printFigure(Output& out, std::string_view name, const std::string& text) {
    if (!text.empty()) out.line(fmt::format("{:<16}{}", name, text));
}

}  // namespace

std::string marketText(std::string_view marketState) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> texts{
        {{"OPEN", "open"}, {"CLOSED", "closed"}, {"PRE", "before hours"}, {"POST", "after hours"}}};
    for (const auto& [state, text] : texts) {
        if (state == marketState) return std::string(text);
    }
    return printable(kit::lowercasedASCII(marketState));
}

void printQuote(Output& out, const StockQuote& quote, kit::Instant now) {
    const auto previous = quote.previousClose();
    const auto change = kit::PriceChange::of(quote.price, previous);
    const auto symbol = printable(quote.symbol);
    out.line(fmt::format("{}  {}", out.bold(symbol), printable(quote.name)));
    out.line(
        fmt::format("{} {}  {}", out.bold(priceText(quote.price)), printable(quote.currency),
                    change ? changeText(*change) : "change of the day not known"));
    out.line();
    const auto chart = quoteChart(quote, out.width());
    for (const auto& line : chart) out.line(line);
    if (!chart.empty()) out.line();

    printFigure(out, "Previous close", previous ? priceText(*previous) : "not known");
    printFigure(out, "Day", spreadText(quote.dayLow, quote.dayHigh));
    printFigure(out, "Year", spreadText(quote.yearLow, quote.yearHigh));
    printFigure(out, "Volume", quote.volume ? volumeText(*quote.volume) : "");
    printFigure(out, "Market", marketText(quote.marketState));
    if (quote.asOf) {
        printFigure(out, "As of", momentText(*quote.asOf) + ", " + agoText(*quote.asOf, now));
    }
    if (quote.stale.value_or(false)) out.line("The service itself has only old figures.");
}

}  // namespace cli
