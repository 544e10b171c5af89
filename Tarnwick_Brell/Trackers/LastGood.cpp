#include "Tarnwick_Brell/Trackers/LastGood.h"

namespace desk {

using newsroom::StockQuote;

TrackerReading<LastGood::Services> LastGood::status(newsroom::StatusAudience audience) {
    return answers_.read(statusFile(audience));
}

TrackerReading<std::vector<newsroom::PlatformRelease>> LastGood::releases() {
    return answers_.read(releasesFile());
}

TrackerReading<std::vector<newsroom::AppleCalendarEvent>> LastGood::events() {
    return answers_.read(eventsFile());
}

TrackerReading<StockQuote> LastGood::quote(std::string_view symbol, newsroom::QuoteRange range) {
    return answers_.read(quoteFile(symbol, range));
}

TrackerReading<std::vector<newsroom::BoardQuote>> LastGood::board() { return answers_.read(boardFile()); }

}  // namespace desk
