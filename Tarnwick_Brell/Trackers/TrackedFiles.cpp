#include "Tarnwick_Brell/Trackers/TrackedFiles.h"

#include <algorithm>

#include "NewsroomKit/Markets/PriceMoves.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Trackers/Charts/ChartSignals.h"
#include "NewsroomKit/Trackers/Releases/ReleaseSignals.h"
#include "NewsroomKit/Trackers/SignalsAPI.h"
#include "NewsroomKit/Trackers/Signing/SigningSignals.h"
#include "NewsroomKit/Trackers/Status/AppleStatusAPI.h"
#include "NewsroomKit/Trackers/Status/ServiceSignals.h"
#include "NewsroomKit/Trackers/TrackerAPI.h"
#include "NewsroomKit/Trackers/Updates/OfferSignals.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/SettingKey.h"
#include "Tarnwick_Brell/Trackers/RemovalConfirmation.h"
#include "Tarnwick_Brell/Trackers/StatusWatch.h"

namespace app {

using kit::AppleServiceStatus;
using kit::AppleStatusAPI;
using kit::AppleUpdateCatalog;
using kit::AppStoreCharts;
using kit::HTTPClient;
using kit::Instant;
using kit::PlatformRelease;
using kit::SignalsAPI;
using kit::SigningStatus;
using kit::StockQuote;
using kit::TrackerAPI;

namespace {

constexpr std::string_view kSigningPrefix = "signing/";
// A desk follows a handful of symbols and devices; people look at many others once.
constexpr std::size_t kMostCopies = 200;

template <class T>
bool isEmptyList(const std::vector<T>& list) {
    return list.empty();
}

/// Platforms without any release do not count.
bool hasNoRelease(const std::vector<PlatformRelease>& releases) {
    return std::ranges::none_of(releases, [](const PlatformRelease& platform) {
        return platform.current || platform.beta;
    });
}

/// The symbol in the one form that all its spellings share: services separate the class of a
/// share with a point, a hyphen or a slash ("BRK.B", "BRK-B", "BRK/B").
std::string comparable(std::string_view symbol) {
    auto text = kit::lowercasedASCII(symbol);
    std::ranges::replace_if(text, [](char c) { return c == '.' || c == '/' || c == ' '; }, '-');
    return text;
}

std::string baseAt(const TrackedFiles& files) { return TrackerAPI::baseAt(files.serviceAddress); }

}  // namespace

std::string TrackedFiles::catalogueAuthorityHint() {
    return "Apple's own authority has issued it; the setting " +
           std::string(SettingKey::kUpdateCatalogueAuthority) +
           " names a file with that authority's certificate.";
}

TrackedFile<AppleServiceStatus::Services> TrackedFiles::status(kit::StatusFeed audience) const {
    const std::string name(rawValue(audience));
    return {
        .tracker = Tracker::status,
        .name = "status/" + name,
        .title = "Apple's " + name + " status",
        .address = AppleStatusAPI::address(audience),
        .fetch = [audience](HTTPClient& http) { return AppleStatusAPI{http}.fetch(audience); },
        .parse = AppleServiceStatus::parse,
        .emptyAnswer = EmptyAnswer::refused,
        .isEmpty = isEmptyList,
        .carryOverMissing = carryOverMissing,
        .record =
            [audience](LocalStore& store, const auto& before, const auto& services, Instant now) {
                store.incidents().record(audience, services, now);
                store.signalLog().add(kit::signalsOf(before, services, audience, now));
                extendWatch(store.state(), audience, now);
            },
        .comesFirst = audience == kit::StatusFeed::consumer};
}

TrackedFile<std::vector<PlatformRelease>> TrackedFiles::releases() const {
    const auto base = baseAt(*this);
    return {.tracker = Tracker::releases,
            .name = "releases",
            .title = "The list of releases",
            .address = base,
            .fetch = [base](HTTPClient& http) { return TrackerAPI{base, http}.releases(); },
            .parse = TrackerAPI::parseReleases,
            .emptyAnswer = EmptyAnswer::refused,
            .isEmpty = hasNoRelease,
            .carryOverMissing = carryOverMissing,
            .record =
                [](LocalStore& store, const auto& before, const auto& releases, Instant now) {
                    store.builds().record(releases, now);
                    store.signalLog().add(kit::signalsOf(before, releases, now));
                }};
}

TrackedFile<std::vector<kit::AppleCalendarEvent>> TrackedFiles::events() const {
    const auto base = baseAt(*this);
    return {.tracker = Tracker::events,
            .name = "events",
            .title = "Apple's calendar",
            .address = base,
            .fetch = [base](HTTPClient& http) { return TrackerAPI{base, http}.events(); },
            .parse = TrackerAPI::parseEvents,
            .carryOverMissing = carryOverMissing};
}

TrackedFile<StockQuote> TrackedFiles::quote(std::string_view symbol, kit::QuoteRange range) const {
    const auto base = baseAt(*this);
    const std::string name(symbol);
    return {.tracker = Tracker::quotes,
            .name = std::string(kQuotePrefix) + std::string(rawValue(range)) + "/" + name,
            .title = "The quote of " + name,
            .address = base,
            .fetch = [base, name, range](
                         HTTPClient& http) { return TrackerAPI{base, http}.quote(name, range); },
            .parse = TrackerAPI::parseQuote,
            .isRequested =
                [symbol = comparable(symbol), range](const StockQuote& quote) {
                    return quote.range == rawValue(range) && comparable(quote.symbol) == symbol;
                },
            .mismatchText = "The server answered with another quote.",
            .notFoundText = "The service knows no such symbol.",
            .record =
                [](LocalStore& store, const auto&, const auto&, Instant) {
                    store.trackerCopies().dropAllButLatest(kQuotePrefix, kMostCopies);
                }};
}

TrackedFile<StockQuote> TrackedFiles::followedYear(std::string_view symbol) const {
    auto file = quote(symbol, kit::QuoteRange::year);
    file.record = [record = file.record, address = file.address](
                      LocalStore& store, const auto& before, const auto& year, Instant now) {
        record(store, before, year, now);
        store.signalLog().add(kit::signalsOf(before, year, address, now));
    };
    return file;
}

TrackedFile<std::vector<kit::BoardQuote>> TrackedFiles::board() const {
    const auto base = baseAt(*this);
    return {.tracker = Tracker::board,
            .name = "quotes",
            .title = "The board of quotes",
            .address = base,
            .fetch = [base](HTTPClient& http) { return TrackerAPI{base, http}.board(); },
            .parse = TrackerAPI::parseBoard,
            .emptyAnswer = EmptyAnswer::refusedAfterItems,
            .isEmpty = isEmptyList};
}

TrackedFile<SigningStatus> TrackedFiles::signing(std::string_view device) const {
    const std::string name(device);
    return {.tracker = Tracker::signing,
            .name = std::string(kSigningPrefix) + name,
            .title = "The signing status of " + name,
            .address = SignalsAPI::signingAddress(device),
            .fetch = [name](HTTPClient& http) { return SignalsAPI{http}.signingStatus(name); },
            .parse = SigningStatus::parse,
            .emptyAnswer = EmptyAnswer::refusedAfterItems,
            .isEmpty = [](const SigningStatus& status) { return status.builds.empty(); },
            .carryOverMissing = carryOverMissing,
            .notFoundText = "The service knows no such device.",
            .record =
                [name](LocalStore& store, const auto& before, const auto& status, Instant now) {
                    const auto changes = kit::signingChanges(name, before, status, now);
                    store.signing().add(changes);
                    store.signalLog().add(kit::signalsOf(changes));
                    store.trackerCopies().dropAllButLatest(kSigningPrefix, kMostCopies);
                }};
}

TrackedFile<std::vector<kit::UpdateOffer>> TrackedFiles::updates() const {
    return {.tracker = Tracker::updates,
            .name = "updates",
            .title = "Apple's update catalogue",
            .address = SignalsAPI::updatesAddress(),
            .fetch = [](HTTPClient& http) { return SignalsAPI{http}.updateOffers(); },
            .parse = AppleUpdateCatalog::parse,
            .emptyAnswer = EmptyAnswer::refused,
            .isEmpty = isEmptyList,
            .carryOverMissing = carryOverMissing,
            .untrustedHint = catalogueAuthorityHint(),
            .record =
                [](LocalStore& store, const auto& before, const auto& offers, Instant now) {
                    const auto changes = kit::offerChanges(before, offers, now);
                    store.offers().add(changes);
                    store.signalLog().add(kit::signalsOf(changes));
                }};
}

TrackedFile<std::vector<kit::ChartEntry>> TrackedFiles::chart(AppStoreCharts::Kind kind) const {
    return {.tracker = Tracker::charts,
            .name = "chart/" + std::string(rawValue(kind)),
            .title = "The chart \"" + std::string(label(kind)) + "\"",
            .address = SignalsAPI::chartAddress(kind),
            .fetch = [kind](HTTPClient& http) { return SignalsAPI{http}.chart(kind); },
            .parse = AppStoreCharts::parse,
            .emptyAnswer = EmptyAnswer::refused,
            .isEmpty = isEmptyList,
            .carryOverMissing = carryOverMissing,
            .record =
                [kind](LocalStore& store, const auto& before, const auto& entries, Instant now) {
                    store.charts().record(kind, entries, now);
                    store.signalLog().add(kit::signalsOf(kind, before, entries, now));
                }};
}

}  // namespace app
