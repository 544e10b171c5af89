#include "Tarnwick_Brell/CommandLine/TrackerPanels.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>

#include "NewsroomKit/Trackers/Events/MarkedEvents.h"
#include "Tarnwick_Brell/CommandLine/PanelState.h"
#include "Tarnwick_Brell/CommandLine/PanelText.h"
#include "Tarnwick_Brell/CommandLine/QuoteChart.h"
#include "Tarnwick_Brell/CommandLine/QuoteText.h"
#include "Tarnwick_Brell/CommandLine/StatusText.h"
#include "Tarnwick_Brell/Trackers/LastGood.h"

namespace cli {

namespace {

using Lines = std::vector<std::string>;
using kit::AppleServiceStatus;
using kit::Instant;
using kit::PanelSpec;
using kit::QuoteRange;

constexpr std::string_view kShare = "AAPL";
constexpr std::chrono::hours kSoon{24};  ///< an event is not over as soon as it has begun
constexpr std::size_t kDistanceColumns = 12;

app::LastGood lastGood(PanelHoldings& holdings) {
    return app::LastGood(holdings.session().storeForReading());
}

std::set<std::string> platformsOf(const PanelSpec& panel) {
    return {panel.options.platforms.begin(), panel.options.platforms.end()};
}

std::string quoteLine(const std::string& symbol, const std::string& name, double price,
                      const std::string& currency, const std::optional<std::string>& change) {
    return fmt::format("{} {} {:>12} {}{}", padTo(printable(symbol), 10),
                       padTo(printable(name), 28), amountText(price), printable(currency),
                       change ? "  " + *change : "");
}

}  // namespace

Lines countdownLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto reading = lastGood(holdings).events();
    if (!reading.value) return nothingYet(holdings, reading, "events");
    Lines lines;
    for (const auto& event : markedEvents(*reading.value, panel.options.eventTerms)) {
        if (event.starts < holdings.now() - kSoon || event.isReleased()) continue;
        if (lines.size() == lineCount(panel)) break;
        lines.push_back(fmt::format(
            "{} {}{}", padTo(distanceText(event.starts, holdings.now()), kDistanceColumns),
            printable(event.title), event.window.empty() ? "" : ", " + printable(event.window)));
    }
    if (lines.empty()) lines.emplace_back("No date of Apple's is known.");
    addState(lines, holdings, reading);
    return lines;
}

Lines stockLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto range =
        kit::enumFromRaw<QuoteRange>(panel.options.stockRange).value_or(QuoteRange::month);
    const auto reading = lastGood(holdings).quote(kShare, range);
    if (!reading.value) {
        return nothingYet(holdings, reading, fmt::format("quote --range {}", rawValue(range)));
    }
    const auto& quote = *reading.value;
    Lines lines{fmt::format("{} {}  {}  {}", amountText(quote.price), printable(quote.currency),
                            changeText(quote.price, quote.previousClose()).value_or(""),
                            marketText(quote.marketState))};
    for (auto& line : quoteChart(quote, std::min<std::size_t>(holdings.width() - 4, 72)))
        lines.push_back(std::move(line));
    const auto events = lastGood(holdings).events();
    if (events.value && !quote.points.empty()) {
        for (const auto& event : markedEvents(*events.value, panel.options.eventTerms)) {
            if (event.starts < quote.points.front().time || event.starts > holdings.now()) continue;
            lines.push_back(fmt::format("{}  {}", dayText(event.starts), printable(event.title)));
        }
    }
    addState(lines, holdings, reading);
    return lines;
}

Lines suppliersLines(PanelHoldings& holdings) {
    const auto reading = lastGood(holdings).board();
    if (!reading.value) return nothingYet(holdings, reading, "board");
    Lines lines;
    const auto share = lastGood(holdings).quote(kShare, QuoteRange::day);
    if (share.value) {
        lines.push_back(quoteLine(share.value->symbol, share.value->name, share.value->price,
                                  share.value->currency,
                                  changeText(share.value->price, share.value->previousClose())));
    }
    for (const auto& row : *reading.value) {
        lines.push_back(quoteLine(row.symbol, row.name, row.price, row.currency,
                                  changeText(row.price, row.previousClose)));
    }
    addState(lines, holdings, reading);
    return lines;
}

Lines softwareLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto reading = lastGood(holdings).releases();
    if (!reading.value) return nothingYet(holdings, reading, "releases");
    Lines lines;
    const auto wanted = platformsOf(panel);
    for (const auto& platform : *reading.value) {
        if (!wanted.contains(platform.platform)) continue;
        const auto text = [](const std::optional<kit::SoftwareRelease>& release) {
            return release ? fmt::format("{} ({})", printable(release->version),
                                         printable(release->build))
                           : std::string("none");
        };
        lines.push_back(fmt::format("{} {} beta {}", padTo(printable(platform.platform), 10),
                                    padTo(text(platform.current), 20), text(platform.beta)));
    }
    if (lines.empty()) lines.emplace_back("Nothing is known of these platforms.");
    addState(lines, holdings, reading);
    return lines;
}

Lines releasesLines(PanelHoldings& holdings, const PanelSpec& panel) {
    constexpr std::size_t kEnough = 500;
    const auto reading = lastGood(holdings).releases();
    auto builds = holdings.session().storeForReading().builds().newest(kEnough);
    if (builds.empty()) return nothingYet(holdings, reading, "releases");
    std::stable_sort(builds.begin(), builds.end(), [](const auto& a, const auto& b) {
        return a.release.published > b.release.published;
    });
    Lines lines;
    const auto wanted = platformsOf(panel);
    for (const auto& build : builds) {
        if (!wanted.contains(build.platform)) continue;
        if (lines.size() == lineCount(panel)) break;
        lines.push_back(
            fmt::format("{} {} ({})", padTo(age(build.release.published, holdings.now()), 11),
                        printable(build.release.title), printable(build.release.build)));
    }
    if (lines.empty()) lines.emplace_back("Nothing is known of these platforms.");
    addState(lines, holdings, reading);
    return lines;
}

Lines statusLines(PanelHoldings& holdings) {
    const auto consumer = lastGood(holdings).status(kit::StatusFeed::consumer);
    const auto developer = lastGood(holdings).status(kit::StatusFeed::developer);
    if (!consumer.value) return nothingYet(holdings, consumer, "status");
    Lines lines;
    std::size_t services = 0;
    for (const auto* reading : {&consumer, &developer}) {
        if (!reading->value) continue;
        services += reading->value->size();
        for (const auto& report : AppleServiceStatus::ongoingReports(*reading->value)) {
            lines.push_back(fmt::format(
                "{}: {}{}{}", printable(report.service), incidentKindText(report.incident.kind),
                report.incident.started ? " since " + dayAndTime(*report.incident.started) : "",
                report.incident.message.empty() ? "" : ". " + printable(report.incident.message)));
        }
    }
    if (lines.empty()) lines.push_back(fmt::format("All {} services are up.", services));
    addState(lines, holdings, consumer);
    if (developer.error || developer.fetchedAt != consumer.fetchedAt)
        addState(lines, holdings, developer, "developer services ");
    return lines;
}

}  // namespace cli
