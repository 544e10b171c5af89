#include "Tarnwick_Brell/CommandLine/SignalPanels.h"

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/PanelState.h"
#include "Tarnwick_Brell/CommandLine/PanelText.h"
#include "Tarnwick_Brell/Signals/LastSignals.h"
#include "Tarnwick_Brell/Signals/SigningNews.h"

namespace cli {

namespace {

using Lines = std::vector<std::string>;

// A build counts once, for however many devices it changed.
constexpr std::size_t kMostDevices = 40;

std::string lineOf(PanelHoldings& holdings, kit::Instant when, const std::string& sentence) {
    constexpr std::size_t kAgeColumns = 11;
    return padTo(age(when, holdings.now()), kAgeColumns) + " " + printable(sentence);
}

/// The reading that was fetched longest ago, of those that were fetched.
app::TrackerReading<kit::SigningStatus> oldestSigning(PanelHoldings& holdings) {
    app::LastSignals last(holdings.session().storeForReading());
    app::TrackerReading<kit::SigningStatus> oldest;
    for (const auto& device : holdings.session().defaults().signingDevices()) {
        const auto reading = last.signing(device);
        if (!reading.fetchedAt) continue;
        if (!oldest.fetchedAt || reading.fetchedAt < oldest.fetchedAt) oldest = reading;
    }
    return oldest;
}

}  // namespace

Lines recordsLines(PanelHoldings& holdings, const kit::PanelSpec& panel) {
    const auto reading = oldestSigning(holdings);
    const auto changes =
        holdings.session().storeForReading().signing().newest(lineCount(panel) * kMostDevices);
    if (!reading.value && changes.empty()) return nothingYet(holdings, reading, "signing");
    Lines lines;
    for (const auto& news : app::signingNews(changes)) {
        if (lines.size() == lineCount(panel)) break;
        lines.push_back(lineOf(holdings, news.seenAt, news.sentence()));
    }
    if (lines.empty()) lines.emplace_back("No change of signing has been seen yet.");
    addState(lines, holdings, reading, "signing ");
    lines.push_back(
        holdings.session().out().dim("The desk does not read filings and court records yet."));
    return lines;
}

Lines backendLines(PanelHoldings& holdings, const kit::PanelSpec& panel) {
    const auto reading = app::LastSignals(holdings.session().storeForReading()).updates();
    const auto changes = holdings.session().storeForReading().offers().newest(lineCount(panel));
    if (!reading.value && changes.empty()) return nothingYet(holdings, reading, "updates");
    Lines lines;
    for (const auto& change : changes) {
        lines.push_back(lineOf(holdings, change.seenAt, app::sentence(change)));
    }
    if (lines.empty()) {
        lines.emplace_back("No change has been seen yet. Posted last:");
        for (const auto& offer : *reading.value) {
            if (lines.size() == lineCount(panel)) break;
            lines.push_back(fmt::format("{} {} {} ({})", dayText(offer.posted),
                                        printable(offer.platform), printable(offer.version),
                                        printable(offer.build)));
        }
    }
    addState(lines, holdings, reading);
    return lines;
}

}  // namespace cli
