#include <algorithm>
#include <memory>
#include <string>

#include <fmt/format.h>

#include "NewsroomKit/Panels/LedgerContent.h"
#include "Tarnwick_Brell/CommandLine/AnalysisText.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

struct LedgerOptions {
    AnalysisOptions analysis{.days = 730, .limit = 50};
    std::string outlet{};
    std::string state{};
};

kit::LedgerFilter filterOf(const LedgerOptions& options) {
    kit::LedgerFilter filter{.outlet = options.outlet};
    if (!options.state.empty())
        filter.state = kit::enumFromRaw<kit::LedgerClaim::State>(options.state);
    return filter;
}

void printLedgerRecords(Session& session, const std::vector<kit::LedgerOutlet>& outlets,
                        const std::vector<kit::LedgerRow>& rows) {
    boost::json::array claims;
    for (const auto& row : rows) {
        auto record = kit::encode(row.claim).as_object();
        record["title"] = row.story.title;
        if (row.claim.settledBy) record["why"] = row.claim.why;
        claims.push_back(std::move(record));
    }
    printValue(session, boost::json::object{{"claims", std::move(claims)},
                                            {"outlets", kit::encode(outlets)}});
}

std::string settledText(const kit::LedgerRow& row) {
    if (!row.settledBy) return "";
    return fmt::format("{}, after {:.1f} days", printable(row.settledBy->outlet), *row.claim.days);
}

int runLedger(Session& session, const LedgerOptions& options) {
    const auto subjects =
        subjectsOf(session, options.analysis.query, std::chrono::days(options.analysis.days));
    const auto ledger = kit::ledgerOf(subjects.news());
    auto rows = kit::ledgerContent(ledger, filterOf(options)).claims;
    rows.resize(std::min(rows.size(), static_cast<std::size_t>(options.analysis.limit)));
    if (session.options().json) {
        printLedgerRecords(session, ledger.outlets, rows);
        return kDone;
    }
    if (ledger.claims.empty()) {
        session.advise("No reports or rumors about Apple in the library.");
        return kDone;
    }
    TextTable outlets({Column::whole("outlet"), Column::whole("claims"), Column::whole("confirmed"),
                       Column::whole("denied"), Column::whole("open"), Column::whole("expired"),
                       Column::whole("median days")});
    for (const auto& row : ledger.outlets) {
        outlets.add({printable(row.outlet), std::to_string(row.claims),
                     std::to_string(row.confirmed), std::to_string(row.denied),
                     std::to_string(row.open), std::to_string(row.expired),
                     row.medianDays ? fmt::format("{:.1f}", *row.medianDays) : "–"});
    }
    outlets.print(session.out());
    session.out().line();
    TextTable claims({Column::whole("when"), Column::whole("state"), Column::whole("outlet"),
                      Column::cut("claim", 30), Column::cut("settled by").dropped(1),
                      Column::whole("story")});
    for (const auto& row : rows) {
        claims.add({ageText(row.claim.at, session.now()), std::string(label(row.claim.state)),
                    printable(row.claim.outlet), printable(row.story.title), settledText(row),
                    row.claim.story});
    }
    claims.print(session.out());
    return kDone;
}

}  // namespace

void addLedgerCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<LedgerOptions>();
    auto command = app.subcommand("ledger", "What became of reports and rumors, outlet by outlet");
    options->analysis.query.addTo(command);
    command.option("--outlet", options->outlet, "Only this outlet's claims").shownAs("NAME");
    command.option("--state", options->state, "Only claims that are open, confirmed, and so on")
        .oneOf({"open", "confirmed", "denied", "expired"});
    command.number("--days", options->analysis.days, {1, 36'500}, "How many days to look back");
    command.number("--limit", options->analysis.limit, {1, 100'000},
                   "Show at most this many claims");
    command.footer("A claim is followed until Apple confirms or denies it, or for 365 days.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runLedger(session, *options); };
    });
}

}  // namespace cli
