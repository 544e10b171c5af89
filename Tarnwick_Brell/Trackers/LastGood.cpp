#include "Tarnwick_Brell/Trackers/LastGood.h"

namespace desk {

using newsroom::StockQuote;

TrackerReading<LastGood::Services> LastGood::status(newsroom::StatusAudience audience) {
    return read(statusFile(audience));
}

TrackerReading<std::vector<newsroom::PlatformRelease>> LastGood::releases() {
    return read(releasesFile());
}

TrackerReading<std::vector<newsroom::AppleCalendarEvent>> LastGood::events() {
    return read(eventsFile());
}

TrackerReading<StockQuote> LastGood::quote(std::string_view symbol, newsroom::QuoteRange range) {
    return read(quoteFile(symbol, range));
}

TrackerReading<std::vector<newsroom::BoardQuote>> LastGood::board() { return read(boardFile()); }

}  // namespace desk
