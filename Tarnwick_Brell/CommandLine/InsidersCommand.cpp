#include <memory>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "NewsroomKit/Filings/OwnershipWords.h"
#include "NewsroomKit/Filings/TradeCode.h"
#include "NewsroomKit/Panels/FilingsContent.h"
#include "NewsroomKit/Panels/InsidersContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/FilingConsole.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

struct InsidersOptions {
    std::string company;
    std::optional<std::string> since;
    bool all = false;
    bool stored = false;
};

boost::json::object insiderObject(const kit::InsiderRow& row) {
    boost::json::object object{
        {"company", row.company},        {"person", row.person},
        {"firstDay", row.firstDay},      {"lastDay", row.lastDay},
        {"sums", kit::encode(row.sums)}, {"plan", kit::rawValue(row.plan)},
        {"decision", row.isDecision},    {"late", row.isLate},
        {"amended", row.isAmended},      {"accessions", kit::encode(row.accessions)}};
    if (row.title) object["title"] = *row.title;
    if (row.planDay) object["planDay"] = *row.planDay;
    if (row.shareOfHolding) object["shareOfHolding"] = *row.shareOfHolding;
    if (row.heldAfter) object["heldAfter"] = *row.heldAfter;
    if (row.notice) object["notice"] = kit::encode(*row.notice);
    if (row.link) object["link"] = *row.link;
    return object;
}

std::string planText(const kit::InsiderRow& row) {
    if (row.plan == kit::TradingPlan::yes && row.planDay) return "of " + *row.planDay;
    return std::string(kit::label(row.plan));
}

void addRows(TextTable& table, const kit::InsiderRow& row, bool showsRoutine) {
    const auto holding =
        row.shareOfHolding ? fmt::format("{:.0f} %", *row.shareOfHolding) : std::string();
    if (row.sums.empty() && row.notice) {
        table.add({row.lastDay, row.company, printable(row.person), "will sell",
                   row.notice->shares ? kit::amountInWords(*row.notice->shares) : "", "",
                   row.notice->value ? priceText(*row.notice->value) : "", "", planText(row)});
    }
    for (const auto& sum : row.sums) {
        const bool isDecision = kit::isDecision(sum.code);
        if (!isDecision && !showsRoutine) continue;
        table.add({row.lastDay, row.company, printable(row.person),
                   printable(kit::tradeVerb(sum.code, sum.acquired)) +
                       (row.notice ? ", as announced" : "") + (row.isLate ? ", late" : ""),
                   kit::amountInWords(sum.shares),
                   sum.averagePrice ? priceText(*sum.averagePrice) : "",
                   sum.value ? priceText(*sum.value) : "", isDecision ? holding : "",
                   isDecision ? planText(row) : ""});
    }
}

void printInsiders(Output& out, const kit::InsidersContent& content, bool showsRoutine) {
    if (content.rows.empty()) {
        out.line("No trade of an insider has been seen.");
    } else {
        TextTable table({Column::whole("day"), Column::cut("company", 8), Column::cut("person", 14),
                         Column::cut("did", 12), Column::whole("shares"),
                         Column::whole("average").dropped(3), Column::whole("value"),
                         Column::whole("of holding").dropped(2), Column::whole("plan").dropped(1)});
        for (const auto& row : content.rows) addRows(table, row, showsRoutine);
        table.print(out);
    }
    if (content.routine > 0) {
        out.line(out.dim(fmt::format("{} routine {} left out; --all shows them.", content.routine,
                                     content.routine == 1 ? "row is" : "rows are")));
    }
}

int showInsiders(Session& session, const InsidersOptions& options) {
    kit::InsiderFilter filter{.includesRoutine = options.all, .company = options.company};
    if (options.since) filter.since = dayText(parseTimeArgument(*options.since, session.now()));
    const auto view = readFilings(session, options.stored, options.company);
    const auto content = kit::insidersContent(view.filings, filter);
    if (session.options().json) {
        boost::json::array rows;
        for (const auto& row : content.rows) rows.push_back(insiderObject(row));
        session.out().line(boost::json::serialize(
            boost::json::object{{"insiders", std::move(rows)}, {"routine", content.routine}}));
    } else {
        printInsiders(session.out(), content, options.all);
    }
    return finishTrackers(session, options.stored, view.states);
}

}  // namespace

void addInsidersCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<InsidersOptions>();
    auto insiders =
        app.subcommand("insiders", "What insiders bought, sold and gave away, or mean to sell");
    insiders.flag("--all", options->all, "Grants, vesting and shares withheld for tax, too");
    insiders.option("--company", options->company, "Only of this company: its name or symbol")
        .shownAs("C");
    insiders.option("--since", options->since, "Only trades since then: 2d, 1w, 2026-11-02")
        .shownAs("WHEN");
    addStoredFlag(insiders, options->stored);
    insiders.footer(
        "Sums and averages are the desk's. What a person did within three days is one "
        "row; a notice is joined with the sale that it announced.");
    insiders.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return showInsiders(session, *options); };
    });
}

}  // namespace cli
