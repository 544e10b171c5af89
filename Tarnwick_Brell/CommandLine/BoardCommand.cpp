#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/BoardContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/ShareQuotes.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using Board = std::vector<kit::BoardQuote>;

/// Apple's share is not on the board, and its price may be of another time.
void addTimeOfShare(TextTable& table, const ShareQuotes::Quote& share) {
    const auto content = kit::quoteContent(*share.value, share.fetchedAt);
    if (content.pricedAt) table.addNote("As of " + momentText(*content.pricedAt) + ".");
}

void print(Session& session, const Board& board) {
    auto& out = session.out();
    if (board.empty()) {
        out.line("The board is empty.");
        return;
    }
    TextTable table({Column::cut("company"), Column::whole("symbol"), Column::whole("price"),
                     Column::whole("change"), Column::whole("market").dropped(1),
                     Column::cut("relation", 24).dropped(2)});
    const ShareQuotes quotes(session);
    const auto* share = quotes.newest();
    const auto groups = kit::boardGroups(board, share ? &*share->value : nullptr);
    for (const auto& group : groups) {
        table.begin(printable(group.name));
        for (const auto& [quote, change, market] : group.rows) {
            table.add({printable(quote.name), printable(quote.symbol),
                       priceText(quote.price) + " " + printable(quote.currency),
                       change ? percentText(change->percent) : "",
                       printable(market) + (quote.stale.value_or(false) ? ", old" : ""),
                       printable(quote.relation)});
        }
        if (share && &group == &groups.front()) addTimeOfShare(table, *share);
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
         .text = [&](const Board& board) { print(session, board); }});
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
