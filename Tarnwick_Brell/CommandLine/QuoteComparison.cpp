#include "Tarnwick_Brell/CommandLine/QuoteComparison.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "NewsroomKit/Panels/PercentSeries.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/QuoteOptions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::PercentSeries;
using kit::StockQuote;
using QuoteReadings = NamedReadings<StockQuote>;

constexpr std::size_t kMostOthers = 6;

std::vector<std::string> comparedSymbols(const std::string& symbol, const std::string& others) {
    std::vector<std::string> symbols{symbol};
    std::istringstream list(others);
    for (std::string each; std::getline(list, each, ',');) {
        each = knownSymbol(each);
        if (std::ranges::find(symbols, each) == symbols.end()) symbols.push_back(each);
    }
    if (symbols.size() < 2) throw WrongUsage("Another symbol is needed to compare with.");
    if (symbols.size() > kMostOthers + 1) {
        throw WrongUsage("At most " + std::to_string(kMostOthers) +
                         " symbols can be compared with.");
    }
    return symbols;
}

/// A symbol whose quote did not come has no points.
std::vector<PercentSeries> seriesOf(const QuoteReadings& readings) {
    std::vector<PercentSeries> all;
    for (const auto& [name, reading] : readings) {
        all.push_back(reading.value ? kit::percentSeries(*reading.value, *readings[0].reading.value)
                                    : PercentSeries{});
        all.back().symbol = name;
    }
    return all;
}

boost::json::object seriesRecord(const PercentSeries& series,
                                 const kit::CachedValue<StockQuote>& reading) {
    boost::json::object record{{"symbol", series.symbol}};
    if (reading.value) record["name"] = reading.value->name;
    if (const auto change = series.change()) record["change"] = kit::numberValue(*change);
    boost::json::array points;
    for (const auto& point : series.points) {
        points.push_back(boost::json::object{{"place", kit::numberValue(point.place)},
                                             {"percent", kit::numberValue(point.percent)}});
    }
    record["points"] = std::move(points);
    addFetchState(record, {reading.fetchedAt, reading.error});
    return record;
}

void printComparison(Output& out, const QuoteReadings& readings,
                     const std::vector<PercentSeries>& series) {
    TextTable table({Column::whole("symbol"), Column::cut("company").dropped(2),
                     Column::whole("change"), Column::whole("lowest").dropped(1),
                     Column::whole("highest").dropped(1), Column::whole("price")});
    for (std::size_t i = 0; i < series.size(); ++i) {
        const auto& points = series[i].points;
        const auto& quote = readings[i].reading.value;
        if (points.empty() || !quote) {
            table.add({printable(series[i].symbol), "", "not known", "", "", ""});
            continue;
        }
        const auto [low, high] = std::ranges::minmax(points, {}, &PercentSeries::Point::percent);
        table.add({printable(series[i].symbol), printable(quote->name),
                   percentText(points.back().percent), percentText(low.percent),
                   percentText(high.percent),
                   priceText(quote->price) + " " + printable(quote->currency)});
    }
    table.print(out);
}

}  // namespace

int runComparison(Session& session, bool isStored, kit::QuoteRange range, const std::string& symbol,
                  const std::string& others) {
    const auto readings = fetchOrLoadEach<StockQuote>(
        session, isStored, comparedSymbols(symbol, others),
        [range](const auto& files, const auto& name) { return files.quote(name, range); });
    // The others are placed on the first one's axis.
    const auto& first = readings.front().reading;
    if (!first.value) failWithoutData(isStored, {first.fetchedAt, first.error});
    const auto series = seriesOf(readings);
    if (session.options().json) {
        boost::json::array records;
        for (std::size_t i = 0; i < series.size(); ++i) {
            records.push_back(seriesRecord(series[i], readings[i].reading));
        }
        const boost::json::object object{{"range", kit::rawValue(range)},
                                         {"series", std::move(records)}};
        session.out().line(boost::json::serialize(object));
    } else {
        printComparison(session.out(), readings, series);
    }
    return finishTrackers(session, isStored, fetchStatesOf(readings));
}

}  // namespace cli
