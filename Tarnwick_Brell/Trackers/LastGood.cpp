#include "Tarnwick_Brell/Trackers/LastGood.h"

namespace app {

using kit::StockQuote;

TrackerReading<LastGood::Services> LastGood::status(kit::StatusFeed audience) {
    return answers_.read(statusFile(audience));
}

TrackerReading<std::vector<kit::PlatformRelease>> LastGood::releases() {
    return answers_.read(releasesFile());
}

TrackerReading<std::vector<kit::AppleCalendarEvent>> LastGood::events() {
    return answers_.read(eventsFile());
}

TrackerReading<StockQuote> LastGood::quote(std::string_view symbol, kit::QuoteRange range) {
    return answers_.read(quoteFile(symbol, range));
}

TrackerReading<std::vector<kit::BoardQuote>> LastGood::board() {
    return answers_.read(boardFile());
}

}  // namespace app
