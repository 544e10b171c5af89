#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Panels/RacesContent.h"
#include "Tarnwick_Brell/CommandLine/AnalysisText.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

struct RacesOptions {
    AnalysisOptions analysis{.days = 30, .limit = 20};
    std::vector<std::string> outlets{};
};

/// "report 3, rumor 1"
std::string bySourcingText(const kit::RaceRecord& record) {
    std::string text;
    for (const auto& row : kit::enumTable<kit::Sourcing>) {
        const auto count = record.ledBySourcing[static_cast<std::size_t>(row.value)];
        if (count > 0) text += fmt::format("{}{} {}", text.empty() ? "" : ", ", row.raw, count);
    }
    return text;
}

boost::json::object raceRecord(const kit::RaceRecord& record) {
    auto encoded = kit::encode(record).as_object();
    auto& bySourcing = encoded["ledBySourcing"].emplace_object();
    for (const auto& row : kit::enumTable<kit::Sourcing>)
        bySourcing[row.raw] = record.ledBySourcing[static_cast<std::size_t>(row.value)];
    return encoded;
}

void printRecords(Session& session, const std::vector<kit::RacesContent::Row>& rows,
                  std::int64_t days) {
    if (session.options().json) {
        boost::json::array encoded;
        for (const auto& row : rows) encoded.push_back(raceRecord(row.record));
        return printValue(session, std::move(encoded));
    }
    if (rows.empty()) {
        return session.advise(fmt::format("No news of several outlets in the last {} days.", days));
    }
    TextTable table({Column::whole("outlet"), Column::whole("led"), Column::whole("of"),
                     Column::whole("median lead"), Column::cut("led by sourcing").dropped(1)});
    for (const auto& [record, bars] : rows) {
        table.add({printable(record.outlet), std::to_string(record.led),
                   std::to_string(record.subjects), leadColumn(record.medianLead),
                   bySourcingText(record)});
    }
    table.print(session.out());
}

void printPair(Session& session, const kit::RacePair& pair) {
    if (session.options().json) {
        boost::json::array sides;
        for (std::size_t i = 0; i < pair.outlets.size(); ++i) {
            boost::json::object side{{"outlet", pair.outlets[i]}, {"led", pair.led[i]}};
            if (pair.medianLeads[i]) side["medianLead"] = *pair.medianLeads[i];
            sides.push_back(std::move(side));
        }
        return printValue(session, boost::json::object{{"outlets", std::move(sides)},
                                                       {"races", kit::encode(pair.races)}});
    }
    session.out().line(fmt::format("{} {} of both", pair.races.size(),
                                   pair.races.size() == 1 ? "subject" : "subjects"));
    for (std::size_t i = 0; i < pair.outlets.size(); ++i) {
        session.out().line(fmt::format("  {} led {}, median lead {}", printable(pair.outlets[i]),
                                       pair.led[i], leadColumn(pair.medianLeads[i])));
    }
    if (pair.races.empty()) return;
    session.out().line();
    TextTable table({Column::whole("when"), Column::whole("led"), Column::whole("lead"),
                     Column::cut("headline", 30), Column::whole("story")});
    for (const auto& race : pair.races) {
        table.add({ageText(race.at, session.now()), printable(race.leader.value_or("unclear")),
                   race.lead ? spanText(std::chrono::seconds(*race.lead)) : "–",
                   printable(race.title), race.race});
    }
    table.print(session.out());
}

int runRaces(Session& session, const RacesOptions& options) {
    if (options.outlets.size() == 1 || options.outlets.size() > 2)
        throw WrongUsage("Name two outlets, or none for a table of all.");
    const std::chrono::days span(options.analysis.days);
    const auto subjects = subjectsOf(session, options.analysis.query, span);
    auto content = kit::racesContent(kit::racesOf(subjects.news()),
                                     {.span = span, .picked = options.outlets}, session.now());
    if (content.pair) {
        printPair(session, *content.pair);
    } else {
        auto& rows = content.rows;
        rows.resize(std::min(rows.size(), static_cast<std::size_t>(options.analysis.limit)));
        printRecords(session, rows, options.analysis.days);
    }
    return kDone;
}

}  // namespace

void addRacesCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<RacesOptions>();
    auto command = app.subcommand("races", "Which outlets lead on the news that they share");
    command.option("OUTLET", options->outlets, "Two outlets, to see them against each other");
    options->analysis.query.addTo(command);
    command.number("--days", options->analysis.days, {1, 365}, "How many days to look back");
    command.number("--limit", options->analysis.limit, {1, 1'000},
                   "Show at most this many outlets");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runRaces(session, *options); };
    });
}

}  // namespace cli
