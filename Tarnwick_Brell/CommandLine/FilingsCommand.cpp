#include <memory>
#include <optional>
#include <string>

#include "NewsroomKit/Panels/FilingsContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/FilingConsole.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Presentation/FilingText.h"

namespace cli {

namespace {

struct FilingsOptions {
    std::string company;
    std::string form;
    std::optional<std::string> since;
    FilingDetailOptions detail;
    bool stored = false;
};

boost::json::object filingObject(const kit::FilingRow& row) {
    auto object = kit::encode(row.filing).get_object();
    object["company"] = row.company;
    object["words"] = row.words;
    if (!row.headline.empty()) object["headline"] = row.headline;
    if (row.release) object["release"] = row.release->link.value_or(row.release->title);
    object["amended"] = row.isAmended;
    object["weight"] = kit::rawValue(row.weight);
    object["seenAt"] = kit::encode(row.seenAt);
    return object;
}

void printFilings(Output& out, const std::vector<kit::FilingRow>& rows) {
    if (rows.empty()) {
        out.line("No such filing has been seen.");
        return;
    }
    TextTable table({Column::whole("accepted"), Column::cut("form", 8),
                     Column::cut("what it tells", 24), Column::cut("company", 8),
                     Column::whole("dated").dropped(1)});
    for (const auto& row : rows) {
        const auto& filing = row.filing;
        table.add({filing.accepted ? momentText(*filing.accepted) : "", printable(filing.form),
                   printable(app::filingWordsText(row).toStdString()) +
                       (row.isAmended ? " (amended since)" : ""),
                   row.company, row.daysOff != 0 ? printable(filing.filed) : ""});
    }
    table.print(out);
}

int showFilings(Session& session, const FilingsOptions& options) {
    kit::FilingFilter filter{.company = options.company, .form = options.form};
    if (options.since) filter.since = parseTimeArgument(*options.since, session.now());
    const auto view = readFilings(session, options.stored, options.company);
    const auto rows = kit::filingRows(view.filings, filter, view.releases);
    if (session.options().json) {
        boost::json::array list;
        for (const auto& row : rows) list.push_back(filingObject(row));
        session.out().line(
            boost::json::serialize(boost::json::object{{"filings", std::move(list)}}));
    } else {
        printFilings(session.out(), rows);
    }
    return finishTrackers(session, options.stored, view.states);
}

}  // namespace

void addFilingsCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<FilingsOptions>();
    auto filings = app.subcommand(
        "filings", "What Apple and companies near it file with the SEC, the newest first");
    filings.option("--company", options->company, "Only of this company: its name or symbol")
        .shownAs("C");
    filings.option("--form", options->form, "Only this form and its amendments: 8-K, 4, 10-Q")
        .shownAs("F");
    filings.option("--since", options->since, "Only filings since then: 6h, 2d, 2026-11-02")
        .shownAs("WHEN");
    filings
        .option("--show", options->detail.accession,
                "One filing, by its accession number, with the text of its press release")
        .shownAs("NUMBER");
    filings
        .option("--document", options->detail.document,
                "The document whose text --show prints: 8-K, EX-99.2")
        .shownAs("TYPE");
    addStoredFlag(filings, options->stored);
    filings.footer(
        "The SEC asks for a mail address: the setting contactAddress names yours. \"dated\" is "
        "the legal day where it is not the day of acceptance in New York.");
    filings.whenChosen([options, &chosen] {
        options->detail.stored = options->stored;
        chosen = [options](Session& session) {
            return options->detail.accession.empty() ? showFilings(session, *options)
                                                     : showFiling(session, options->detail);
        };
    });
}

}  // namespace cli
