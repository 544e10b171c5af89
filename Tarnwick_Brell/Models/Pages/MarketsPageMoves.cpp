#include "Tarnwick_Brell/Models/Pages/MarketsPageModel.h"

#include <algorithm>

#include <QLocale>

#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Models/Alerts/RuleChanges.h"
#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

// What the page of the markets has on moves and on rules.
namespace app {

namespace {

constexpr int kLongestNamed = 60;

}  // namespace

void MarketsPageModel::readMoves() {
    const auto years = trackers().yearQuotes();
    const auto year = std::ranges::find(years, trackers().focusSymbol(), &kit::StockQuote::symbol);
    if (year == years.end())
        moveLoader_.clear();
    else
        moveLoader_.load(*year, trackers().quoteRange());
}

void MarketsPageModel::showMoves() {
    const auto& quote = trackers().focusQuote().value;
    const auto company = quote ? titleText(quote->name, kLongestNamed) : symbol();
    moves_.setRows(moveLines(moveLoader_.moves(), company, now()));
    movesMessage_.clear();
    if (!moveLoader_.failure().isEmpty())
        movesMessage_ = moveLoader_.failure();
    else if (!moveLoader_.hasRead())
        movesMessage_ = tr("Loading…");
    else if (moves_.rowCount() == 0)
        movesMessage_ = tr("No unusual moves in this range.");
}

QString MarketsPageModel::movesFact() const {
    return tr("%1, at least %2% and twice the usual day")
        .arg(symbol(), QLocale().toString(kit::kLeastMove, 'f', 1));
}

int MarketsPageModel::moveLine(const QString& letter) const {
    const auto& lines = moves_.rows();
    const auto line = std::ranges::find(lines, letter, &MoveLine::letter);
    return line == lines.end() ? -1 : static_cast<int>(line - lines.begin());
}

void MarketsPageModel::openMove(int line) {
    const auto* move = moves_.row(line);
    if (move && !move->storyID.isEmpty()) openStory(move->storyID);
}

void MarketsPageModel::setLevel(const QString& rule, double price) {
    const auto* entry = stores().alerts.rules().find(rule.toStdString());
    if (!entry || !entry->value) return;
    const auto changed = kit::withLevel(*entry->value, price);
    if (changed == *entry->value) return;
    if (const auto problem = ruleProblem(stores(), changed); !problem.isEmpty()) {
        emit noticed(problem);
        return;
    }
    putRule(stores(), changed,
            tr("%1 now waits for %2.").arg(titleText(changed.name), priceText(price)));
}

}  // namespace app
