#include "Tarnwick_Brell/CommandLine/QuoteText.h"

#include <array>
#include <cmath>

#include <fmt/format.h>

#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/CommandLine/QuoteChart.h"
#include "Tarnwick_Brell/CommandLine/DurationText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

namespace cli {

namespace {

using kit::StockQuote;

constexpr std::size_t kDigitsOfGroup = 3;

/// With a sign, except for what rounds to nothing.
std::string signedText(double number) {
    if (std::abs(number) < 0.005) return "0.00";
    return (number > 0 ? "+" : "-") + amountText(std::abs(number));
}

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
    return low && high ? amountText(*low) + " to " + amountText(*high) : "";
}

void printFigure(Output& out, std::string_view name, const std::string& text) {
    if (!text.empty()) out.line(fmt::format("{:<16}{}", name, text));
}

}  // namespace

std::string amountText(double amount) {
    auto text = fmt::format("{:.2f}", amount);
    const auto begin = static_cast<std::size_t>(text.front() == '-');
    for (auto at = text.find('.'); at != text.npos && at > begin + kDigitsOfGroup;) {
        at -= kDigitsOfGroup;
        text.insert(at, ",");
    }
    return text;
}

std::string percentText(double percent) { return signedText(percent) + " %"; }

std::optional<std::string> changeText(double price, std::optional<double> reference) {
    if (!reference || *reference == 0) return std::nullopt;
    const double change = price - *reference;
    return fmt::format("{} ({})", signedText(change), percentText(change / *reference * 100));
}

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
    const auto symbol = printable(quote.symbol);
    out.line(fmt::format("{}  {}", out.bold(symbol), printable(quote.name)));
    out.line(
        fmt::format("{} {}  {}", out.bold(amountText(quote.price)), printable(quote.currency),
                    changeText(quote.price, previous).value_or("change of the day not known")));
    out.line();
    const auto chart = quoteChart(quote, out.width());
    for (const auto& line : chart) out.line(line);
    if (!chart.empty()) out.line();

    printFigure(out, "Previous close", previous ? amountText(*previous) : "not known");
    printFigure(out, "Day", spreadText(quote.dayLow, quote.dayHigh));
    printFigure(out, "Year", spreadText(quote.yearLow, quote.yearHigh));
    printFigure(out, "Volume", quote.volume ? volumeText(*quote.volume) : "");
    printFigure(out, "Market", marketText(quote.marketState));
    if (quote.asOf) {
        printFigure(out, "As of", dayAndTime(*quote.asOf) + ", " + distanceText(*quote.asOf, now));
    }
    if (quote.stale.value_or(false)) out.line("The service itself has only old figures.");
}

}  // namespace cli
