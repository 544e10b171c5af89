#include <memory>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/QuoteText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::BoardQuote;
using Board = std::vector<BoardQuote>;

std::string changeOf(const BoardQuote& row) {
    if (row.changePercent) return percentText(*row.changePercent);
    const auto change = kit::PriceChange::of(row.price, row.previousClose);
    return change ? percentText(change->percent) : "";
}

void print(Output& out, const Board& board) {
    if (board.empty()) {
        out.line("The board is empty.");
        return;
    }
    TextTable table({Column::cut("company"), Column::whole("symbol"), Column::whole("price"),
                     Column::whole("change"), Column::whole("market").dropped(1),
                     Column::cut("relation", 24).dropped(2)});
    const BoardQuote* previous = nullptr;
    for (const auto& row : board) {
        if (!previous || previous->group != row.group) table.begin(printable(row.group));
        previous = &row;
        table.add({printable(row.name), printable(row.symbol),
                   priceText(row.price) + " " + printable(row.currency), changeOf(row),
                   marketText(row.marketState) + (row.stale.value_or(false) ? ", old" : ""),
                   printable(row.relation)});
    }
    table.print(out);
}

int runBoard(Session& session, bool isStored) {
    const auto reading =
        fetchOrLoad(session, isStored, [](const auto& files) { return files.board(); });
    return showTracker<Board>(
        session, isStored, reading,
        {.json =
             [](const Board& board) { return boost::json::object{{"quotes", kit::encode(board)}}; },
         .text = [&](const Board& board) { print(session.out(), board); }});
}

}  // namespace

void addBoardCommand(arguments::Command& app, Command& chosen) {
    auto isStored = std::make_shared<bool>(false);
    auto command = app.subcommand("board", "Prices of companies that have to do with Apple");
    addStoredFlag(command, *isStored);
    command.whenChosen([isStored, &chosen] {
        chosen = [isStored](Session& session) { return runBoard(session, *isStored); };
    });
}

}  // namespace cli
