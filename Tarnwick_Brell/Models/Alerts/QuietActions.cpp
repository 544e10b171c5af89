#include "Tarnwick_Brell/Models/Alerts/QuietActions.h"

#include <chrono>

#include <QCoreApplication>

#include "NewsroomKit/Text/TimeZone.h"
#include "Tarnwick_Brell/Alerts/QuietSettings.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace {

using namespace std::chrono_literals;

struct QuietActions {
    Q_DECLARE_TR_FUNCTIONS(QuietActions)
};

constexpr auto kMorning = 7h;

QString quiet(const DeskStores& stores, std::optional<kit::Instant> until) {
    try {
        setQuietUntil(stores.defaults, until);
    } catch (const StoreError& error) {
        return titleText(error.what(), kExcerptCharacters);
    }
    if (!until) return QuietActions::tr("Notifications are shown again.");
    return QuietActions::tr("Quiet until %1. What comes meanwhile is told as one summary.")
        .arg(momentText(*until, stores.clock()));
}

}  // namespace

QString quietForAnHour(const DeskStores& stores) { return quiet(stores, stores.clock() + 1h); }

QString quietUntilMorning(const DeskStores& stores) {
    const auto zone = kit::TimeZone::here();
    const auto today = std::chrono::floor<std::chrono::days>(zone.shownAt(stores.clock()));
    return quiet(stores, zone.firstOf(today + std::chrono::days(1) + kMorning));
}

QString endQuiet(const DeskStores& stores) { return quiet(stores, std::nullopt); }

}  // namespace app
