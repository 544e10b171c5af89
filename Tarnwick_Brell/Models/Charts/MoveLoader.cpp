#include "Tarnwick_Brell/Models/Charts/MoveLoader.h"

#include <utility>

#include "Tarnwick_Brell/Desk/MoveReader.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

constexpr std::chrono::minutes kMovesHoldFor{5};

}  // namespace

MoveLoader::MoveLoader(std::filesystem::path library, kit::Clock clock)
    : library_(std::move(library)), clock_(std::move(clock)) {}

void MoveLoader::load(const kit::StockQuote& year, kit::QuoteRange range) {
    const auto now = clock_();
    const bool isSame = year_ && year_->symbol == year.symbol && range_ == range;
    if (isSame && *year_ == year && now - readAt_ < kMovesHoldFor && now >= readAt_) return;
    if (!isSame) clear();
    year_ = year;
    range_ = range;
    readAt_ = now;
    reading_.start(
        [library = library_, year, from = kit::movesFrom(range, now)] {
            LocalStore store(library, Database::Access::readOnly);
            return readMoves(store, year, from);
        },
        [this](std::vector<kit::MoveRow> moves) {
            if (!year_) return;
            moves_ = std::move(moves);
            hasRead_ = true;
            failure_.clear();
            emit changed();
        },
        [this](const QString& failure) {
            failure_ = failure;
            emit changed();
        });
}

void MoveLoader::clear() {
    year_.reset();
    moves_.clear();
    hasRead_ = false;
    failure_.clear();
}

}  // namespace app
