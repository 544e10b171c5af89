#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/BoardContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using Board = std::vector<kit::BoardQuote>;

void print(Output& out, const Board& board) {
    if (board.empty()) {
        out.line("The board is empty.");
        return;
    }
    TextTable table({Column::cut("company"), Column::whole("symbol"), Column::whole("price"),
                     Column::whole("change"), Column::whole("market").dropped(1),
                     Column::cut("relation", 24).dropped(2)});
    for (const auto& group : kit::boardGroups(board)) {
        table.begin(printable(group.name));
        for (const auto& [quote, change, market] : group.rows) {
            table.add({printable(quote.name), printable(quote.symbol),
                       priceText(quote.price) + " " + printable(quote.currency),
                       change ? percentText(change->percent) : "",
                       printable(market) + (quote.stale.value_or(false) ? ", old" : ""),
                       printable(quote.relation)});
        }
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
