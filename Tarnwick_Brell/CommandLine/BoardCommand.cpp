#include <memory>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/QuoteText.h"
#include "Tarnwick_Brell/CommandLine/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"

namespace brell {

namespace {

using newsroom::BoardQuote;
using Board = std::vector<BoardQuote>;

// Narrower terminals have no room for how the companies relate to Apple.
constexpr std::size_t kWidthForRelations = 100;

std::string changeOf(const BoardQuote& row) {
    if (row.changePercent) return percentText(*row.changePercent);
    if (!row.previousClose || *row.previousClose == 0) return "";
    return percentText((row.price / *row.previousClose - 1) * 100);
}

void print(Output& out, const Board& board) {
    if (board.empty()) {
        out.line("The board is empty.");
        return;
    }
    const bool showsRelations = out.width() >= kWidthForRelations;
    std::vector<std::string> headings{"company", "symbol", "price", "change", "market"};
    if (showsRelations) headings.emplace_back("relation");
    TextTable table(std::move(headings));
    const BoardQuote* previous = nullptr;
    for (const auto& row : board) {
        if (!previous || previous->group != row.group) table.begin(printable(row.group));
        previous = &row;
        std::vector<std::string> cells{
            printable(row.name), printable(row.symbol),
            amountText(row.price) + " " + printable(row.currency), changeOf(row),
            marketText(row.marketState) + (row.stale.value_or(false) ? ", old" : "")};
        if (showsRelations) cells.push_back(printable(row.relation));
        table.add(std::move(cells));
    }
    table.print(out);
}

int runBoard(Session& session, bool isStored) {
    const auto reading =
        askTracker(session, isStored, [](auto& tracker) { return tracker.board(); });
    return showTracker<Board>(
        session, isStored, reading,
        {.json = [](const Board& board) {
             return boost::json::object{{"quotes", newsroom::encode(board)}};
         },
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

}  // namespace brell
