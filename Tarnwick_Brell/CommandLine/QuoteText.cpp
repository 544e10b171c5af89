#include "Tarnwick_Brell/CommandLine/QuoteText.h"

#include <array>

#include <fmt/format.h>

#include "NewsroomKit/Panels/QuoteContent.h"
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

void printQuote(Output& out, const StockQuote& quote, kit::Instant now) {
    const auto content = kit::quoteContent(quote, std::nullopt);
    const auto previous = quote.previousClose();
    out.line(fmt::format("{}  {}", out.bold(printable(quote.symbol)), printable(quote.name)));
    out.line(
        fmt::format("{} {}  {}", out.bold(priceText(content.price)), printable(content.currency),
                    content.change ? changeText(*content.change) : "change of the day not known"));
    out.line();
    const auto chart = quoteChart(quote, out.width());
    for (const auto& line : chart) out.line(line);
    if (!chart.empty()) out.line();

    printFigure(out, "Previous close", previous ? priceText(*previous) : "not known");
    printFigure(out, "Day", spreadText(quote.dayLow, quote.dayHigh));
    printFigure(out, "Year", spreadText(quote.yearLow, quote.yearHigh));
    printFigure(out, "Volume", quote.volume ? volumeText(*quote.volume) : "");
    printFigure(out, "Market", printable(content.market));
    if (quote.asOf) {
        printFigure(out, "As of", momentText(*quote.asOf) + ", " + agoText(*quote.asOf, now));
    }
    if (content.isOld) out.line("The service itself has only old figures.");
}

}  // namespace cli
