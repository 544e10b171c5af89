#include "Tarnwick_Brell/Trackers/TrackedFile.h"

#include <algorithm>

#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Trackers/ListDoubts.h"

namespace app {

using kit::AppleServiceStatus;
using kit::QuoteRange;
using kit::StatusFeed;
using kit::TrackerAPI;

namespace {

/// The symbol in the one form that all spellings of it share: services separate the class of a
/// share with a point, a hyphen or a slash ("BRK.B", "BRK-B", "BRK/B").
std::string comparable(std::string_view symbol) {
    auto text = kit::lowercasedASCII(symbol);
    std::ranges::replace_if(text, [](char c) { return c == '.' || c == '/' || c == ' '; }, '-');
    return text;
}

}  // namespace

TrackedFile<AppleServiceStatus::Services> statusFile(StatusFeed audience) {
    const std::string name(rawValue(audience));
    return {.name = "status/" + name,
            .title = "Apple's " + name + " status",
            .parse = AppleServiceStatus::parse,
            .emptiness = Emptiness::never,
            .saysNothing = saysNothing,
            .mended = mended};
}

TrackedFile<std::vector<kit::PlatformRelease>> releasesFile() {
    return {.name = "releases",
            .title = "The list of releases",
            .parse = TrackerAPI::parseReleases,
            .emptiness = Emptiness::never,
            .saysNothing = saysNothing,
            .mended = mended};
}

TrackedFile<std::vector<kit::AppleCalendarEvent>> eventsFile() {
    return {.name = "events",
            .title = "Apple's calendar",
            .parse = TrackerAPI::parseEvents,
            .emptiness = Emptiness::always,
            .mended = mended};
}

TrackedFile<kit::StockQuote> quoteFile(std::string_view symbol, QuoteRange range) {
    return {
        .name = std::string(kQuoteNames) + std::string(rawValue(range)) + "/" + std::string(symbol),
        .title = "The quote of " + std::string(symbol),
        .parse = TrackerAPI::parseQuote,
        .isWanted =
            [symbol = comparable(symbol), range](const kit::StockQuote& quote) {
                return quote.range == rawValue(range) && comparable(quote.symbol) == symbol;
            },
        .mismatch = "The server answered with another quote.",
        .absence = "The service knows no such symbol."};
}

TrackedFile<std::vector<kit::BoardQuote>> boardFile() {
    return {.name = "quotes",
            .title = "The board of quotes",
            .parse = TrackerAPI::parseBoard,
            .emptiness = Emptiness::neverAgain,
            .saysNothing = saysNothing};
}

}  // namespace app
