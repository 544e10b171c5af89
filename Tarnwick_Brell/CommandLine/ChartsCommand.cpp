#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/ChartContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::ChartEntry;
using Kind = kit::AppStoreCharts::Kind;
using Entries = std::vector<ChartEntry>;

struct ChartsOptions {
    std::string kind;
    bool history = false;
    bool stored = false;

    /// All of them unless one is named.
    std::vector<std::string> kinds() const {
        if (!kind.empty()) return {kind};
        std::vector<std::string> all;
        for (const auto& row : kit::enumTable<Kind>) all.emplace_back(row.raw);
        return all;
    }
};

Kind kindNamed(const std::string& name) { return kit::enumFromRaw<Kind>(name).value(); }

std::string moveText(const kit::ChartContent::Row& place) {
    if (place.isNew) return "new";
    const auto rise = place.rise();
    if (!rise) return "";
    if (*rise == 0) return "=";
    return (*rise > 0 ? "▲ " : "▼ ") + std::to_string(std::abs(*rise));
}

std::optional<kit::ChartDay> dayBefore(Session& session, const NamedReading<Entries>& chart) {
    if (!chart.reading.fetchedAt) return std::nullopt;
    return session.storeForReading().charts().dayBefore(kindNamed(chart.name),
                                                        *chart.reading.fetchedAt);
}

boost::json::object objectOf(Session& session, const NamedReading<Entries>& chart) {
    boost::json::object object{{"kind", chart.name}};
    if (chart.reading.value) {
        boost::json::array list;
        const auto content = chartContent(chart.reading, dayBefore(session, chart));
        for (const auto& place : content.rows) {
            auto entry = kit::encode(place.entry).get_object();
            if (place.rankBefore) entry["rankBefore"] = *place.rankBefore;
            if (place.isNew) entry["isNew"] = true;
            list.push_back(std::move(entry));
        }
        object["entries"] = std::move(list);
    }
    addFetchState(object, {chart.reading.fetchedAt, chart.reading.error});
    return object;
}

void printChart(Session& session, const NamedReading<Entries>& chart) {
    if (!chart.reading.value) return;
    auto& out = session.out();
    out.line(out.bold(label(kindNamed(chart.name))));
    const auto before = dayBefore(session, chart);
    TextTable table({Column::cut("app", 20), Column::whole("rank"),
                     Column::whole(before ? "since " + namedDayText(before->day) : ""),
                     Column::cut("developer").dropped(1)});
    const auto content = chartContent(chart.reading, before);
    for (const auto& place : content.rows) {
        table.add({printable(place.entry.name), std::to_string(place.entry.rank), moveText(place),
                   printable(place.entry.developer)});
    }
    table.print(out);
}

int showCharts(Session& session, const ChartsOptions& options) {
    const auto charts = fetchOrLoadEach<Entries>(
        session, options.stored, options.kinds(),
        [](const auto& files, const std::string& kind) { return files.chart(kindNamed(kind)); });
    requireSome(charts, options.stored);
    auto& out = session.out();
    if (session.options().json) {
        boost::json::array list;
        for (const auto& chart : charts) list.push_back(objectOf(session, chart));
        out.line(options.kind.empty()
                     ? boost::json::serialize(boost::json::object{{"charts", list}})
                     : boost::json::serialize(list.front()));
    } else {
        for (const auto& chart : charts) {
            if (&chart != &charts.front()) out.line();
            printChart(session, chart);
        }
    }
    return finishTrackers(session, options.stored, fetchStatesOf(charts));
}

void printRuns(Session& session, const std::string& kind, const std::vector<app::ChartRun>& runs) {
    auto& out = session.out();
    out.line(out.bold(label(kindNamed(kind))));
    if (runs.empty()) {
        session.advise("This chart has not been seen yet. brell charts fetches it.");
        return;
    }
    TextTable table({Column::cut("app", 20), Column::whole("last rank"), Column::whole("best"),
                     Column::whole("days").dropped(1), Column::whole("first seen").dropped(2),
                     Column::whole("last seen").dropped(3), Column::cut("developer").dropped(4)});
    for (const auto& run : runs) {
        table.add({printable(run.name), std::to_string(run.last), std::to_string(run.best),
                   std::to_string(run.days), namedDayText(run.firstDay), namedDayText(run.lastDay),
                   printable(run.developer)});
    }
    table.print(out);
}

int showHistory(Session& session, const ChartsOptions& options) {
    auto& out = session.out();
    boost::json::array list;
    for (const auto& kind : options.kinds()) {
        const auto runs = session.storeForReading().charts().runs(kindNamed(kind));
        if (session.options().json) {
            list.push_back(boost::json::object{{"kind", kind}, {"apps", kit::encode(runs)}});
            continue;
        }
        if (kind != options.kinds().front()) out.line();
        printRuns(session, kind, runs);
    }
    if (session.options().json) out.line(boost::json::serialize(list));
    return kDone;
}

int runCharts(Session& session, const ChartsOptions& options) {
    if (!options.kind.empty() && !kit::enumFromRaw<Kind>(options.kind)) {
        throw WrongUsage("The charts are top-free and top-paid.");
    }
    return options.history ? showHistory(session, options) : showCharts(session, options);
}

}  // namespace

void addChartsCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<ChartsOptions>();
    auto command = app.subcommand("charts", "The App Store's charts in the United States");
    command.option("CHART", options->kind, "top-free or top-paid; without it, both");
    auto history = command.flag("--history", options->history,
                                "Instead, every app of the last year with its best and last rank");
    addStoredFlag(command, options->stored).excludes(history);
    command.footer("Moves are those since the last day, by UTC, on which this desk saw the chart.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runCharts(session, *options); };
    });
}

}  // namespace cli
