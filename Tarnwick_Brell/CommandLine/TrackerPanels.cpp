#include "Tarnwick_Brell/CommandLine/TrackerPanels.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Panels/SoftwareContent.h"
#include "NewsroomKit/Panels/StatusContent.h"
#include "NewsroomKit/Trackers/Events/MarkedEvents.h"
#include "Tarnwick_Brell/CommandLine/PanelState.h"
#include "Tarnwick_Brell/CommandLine/PanelText.h"
#include "Tarnwick_Brell/CommandLine/QuoteChart.h"
#include "Tarnwick_Brell/CommandLine/QuoteText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"

namespace cli {

namespace {

using Lines = std::vector<std::string>;
using kit::Instant;
using kit::PanelSpec;
using kit::QuoteRange;

const app::TrackedFiles kFiles;  // Their names in the cache do not depend on the service.
constexpr std::string_view kShare = "AAPL";
constexpr std::chrono::hours kSoon{24};  ///< an event is not over as soon as it has begun
constexpr std::size_t kDistanceColumns = 12;

std::optional<std::string> changeOf(double price, std::optional<double> reference) {
    const auto change = kit::PriceChange::of(price, reference);
    return change ? std::optional(changeText(*change)) : std::nullopt;
}

std::string quoteLine(const std::string& symbol, const std::string& name, double price,
                      const std::string& currency, const std::optional<std::string>& change) {
    return fmt::format("{} {} {:>12} {}{}", padTo(printable(symbol), 10),
                       padTo(printable(name), 28), priceText(price), printable(currency),
                       change ? "  " + *change : "");
}

constexpr std::string_view kNoPlatform = "Nothing is known of these platforms.";

std::string developerText(const std::optional<kit::StatusContent::Tally>& tally, Instant now) {
    if (!tally) return "Developer services are not known.";
    if (tally->isCurrent || !tally->fetchedAt)
        return fmt::format("{} of {} developer services are up.", tally->up, tally->all);
    return fmt::format("{} of {} developer services were up {}.", tally->up, tally->all,
                       agoText(*tally->fetchedAt, now));
}

}  // namespace

Lines countdownLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto reading = cached(holdings, kFiles.events());
    if (!reading.value) return nothingYet(holdings, reading, "events");
    Lines lines;
    for (const auto& event : markedEvents(*reading.value, panel.options.eventTerms)) {
        if (event.starts < holdings.now() - kSoon || event.isReleased()) continue;
        if (lines.size() == lineCount(panel)) break;
        lines.push_back(fmt::format(
            "{} {}{}", padTo(agoText(event.starts, holdings.now()), kDistanceColumns),
            printable(event.title), event.window.empty() ? "" : ", " + printable(event.window)));
    }
    if (lines.empty()) lines.emplace_back("No date of Apple's is known.");
    addState(lines, holdings, reading);
    return lines;
}

Lines stockLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto range =
        kit::enumFromRaw<QuoteRange>(panel.options.stockRange).value_or(QuoteRange::month);
    const auto reading = cached(holdings, kFiles.quote(kShare, range));
    if (!reading.value) {
        return nothingYet(holdings, reading, fmt::format("quote --range {}", rawValue(range)));
    }
    const auto& quote = *reading.value;
    Lines lines{fmt::format("{} {}  {}  {}", priceText(quote.price), printable(quote.currency),
                            changeOf(quote.price, quote.previousClose()).value_or(""),
                            marketText(quote.marketState))};
    for (auto& line : quoteChart(quote, std::min<std::size_t>(holdings.width() - 4, 72)))
        lines.push_back(std::move(line));
    const auto events = cached(holdings, kFiles.events());
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
    const auto reading = cached(holdings, kFiles.board());
    if (!reading.value) return nothingYet(holdings, reading, "board");
    Lines lines;
    const auto share = cached(holdings, kFiles.quote(kShare, QuoteRange::day));
    if (share.value) {
        lines.push_back(quoteLine(share.value->symbol, share.value->name, share.value->price,
                                  share.value->currency,
                                  changeOf(share.value->price, share.value->previousClose())));
    }
    for (const auto& row : *reading.value) {
        lines.push_back(quoteLine(row.symbol, row.name, row.price, row.currency,
                                  changeOf(row.price, row.previousClose)));
    }
    addState(lines, holdings, reading);
    return lines;
}

Lines softwareLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto content = kit::softwareContent(kit::fetched(cached(holdings, kFiles.releases())),
                                              panel.options.platforms, holdings.now());
    if (!content.condition.isKnown()) return nothingYet(holdings, content.condition, "releases");
    Lines lines;
    const auto text = [](const std::optional<kit::SoftwareRelease>& release) {
        return release
                   ? fmt::format("{} ({})", printable(release->version), printable(release->build))
                   : std::string("none");
    };
    for (const auto& [platform, latest, isNew] : content.rows) {
        lines.push_back(fmt::format("{} {} beta {}{}", padTo(printable(platform.platform), 10),
                                    padTo(text(platform.current), 20), text(platform.beta),
                                    isNew ? ", new" : ""));
    }
    if (lines.empty()) lines.emplace_back(kNoPlatform);
    addState(lines, holdings, content.condition);
    return lines;
}

Lines releasesLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto content =
        kit::releasesContent(kit::fetched(cached(holdings, kFiles.releases())),
                             holdings.session().storeForReading().builds().newest(kit::kMostBuilds),
                             panel.options.platforms, holdings.now());
    if (!content.condition.isKnown()) return nothingYet(holdings, content.condition, "releases");
    Lines lines;
    for (const auto& [build, isNew] : content.rows) {
        if (lines.size() == lineCount(panel)) break;
        const auto& release = build.release;
        lines.push_back(
            fmt::format("{} {} ({}){}", padTo(ageText(release.published, holdings.now()), 11),
                        printable(release.title), printable(release.build), isNew ? ", new" : ""));
    }
    if (lines.empty()) lines.emplace_back(kNoPlatform);
    addState(lines, holdings, content.condition);
    return lines;
}

Lines statusLines(PanelHoldings& holdings) {
    const auto content = kit::statusContent(
        kit::fetched(cached(holdings, kFiles.status(kit::StatusFeed::consumer))),
        kit::fetched(cached(holdings, kFiles.status(kit::StatusFeed::developer))), holdings.now());
    if (!content.condition.isKnown()) return nothingYet(holdings, content.condition, "status");
    Lines lines;
    for (const auto& incident : content.ongoing) {
        lines.push_back(
            fmt::format("{}: {}{}{}", printable(incident.service), rawValue(incident.level),
                        incident.started ? " since " + momentText(*incident.started) : "",
                        incident.message.empty() ? "" : ". " + printable(incident.message)));
    }
    if (content.isAllUp()) lines.emplace_back("All services are up.");
    lines.push_back(fmt::format("{} of {} consumer services are up.", content.consumer->up,
                                content.consumer->all));
    lines.push_back(developerText(content.developer, holdings.now()));
    addState(lines, holdings, content.condition);
    return lines;
}

}  // namespace cli
