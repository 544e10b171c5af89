#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Panels/MovesContent.h"
#include "Tarnwick_Brell/Models/Pages/LibraryReading.h"

namespace app {

/// Reads the moves of a symbol with their reported reasons from the library, on the thread of the
/// pages: it goes through all stories of the time.
class MoveLoader : public QObject {
    Q_OBJECT
public:
    MoveLoader(std::filesystem::path library, kit::Clock clock);

    /// Of the range of a chart, from the quote over the year. Reads again only when either is
    /// another, or when what it has read is some minutes old: stories come all the time.
    void load(const kit::StockQuote& year, kit::QuoteRange range);
    /// The year is not known.
    void clear();

    /// None while the ones of another symbol or range are read.
    const std::vector<kit::MoveRow>& moves() const { return moves_; }
    bool hasRead() const { return hasRead_; }
    /// Why the last reading failed, as a sentence.
    const QString& failure() const { return failure_; }

signals:
    void changed();

private:
    std::filesystem::path library_;
    kit::Clock clock_;
    std::optional<kit::StockQuote> year_;
    kit::QuoteRange range_ = kit::QuoteRange::month;
    kit::Instant readAt_{};
    std::vector<kit::MoveRow> moves_;
    bool hasRead_ = false;
    QString failure_;
    LibraryReading<std::vector<kit::MoveRow>> reading_;
};

}  // namespace app
