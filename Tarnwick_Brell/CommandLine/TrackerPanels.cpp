#include "Tarnwick_Brell/CommandLine/TrackerPanels.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Panels/BoardContent.h"
#include "NewsroomKit/Panels/CountdownContent.h"
#include "NewsroomKit/Panels/QuoteContent.h"
#include "NewsroomKit/Panels/SoftwareContent.h"
#include "NewsroomKit/Panels/StatusContent.h"
#include "NewsroomKit/Trackers/Events/MarkedEvents.h"
#include "NewsroomKit/Trackers/Releases/ReleaseTitle.h"
#include "Tarnwick_Brell/CommandLine/PanelState.h"
#include "Tarnwick_Brell/CommandLine/PanelText.h"
#include "Tarnwick_Brell/CommandLine/QuoteChart.h"
#include "Tarnwick_Brell/CommandLine/ShareQuotes.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/ReleaseText.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"

namespace cli {

namespace {

using Lines = std::vector<std::string>;
using kit::Instant;
using kit::PanelSpec;
using kit::QuoteRange;

const app::TrackedFiles kFiles;  // Their names in the cache do not depend on the service.
constexpr std::size_t kDistanceColumns = 12;

/// "in 20 days   Harbour fair, 2026-12-10 20:00 CET"
std::string countdownLine(const kit::CountdownRow& event) {
    auto line = padTo(event.starts ? daysAwayText(event.days) : "?", kDistanceColumns) + " " +
                printable(event.title);
    const auto when = !event.starts      ? printable(event.window)
                      : event.isExpected ? "expected around " + dayText(*event.starts)
                                         : momentText(*event.starts);
    if (!when.empty()) line += ", " + when;
    if (event.isReleased) line += ", released";
    return line;
}

std::string boardLine(const kit::BoardRow& row) {
    const auto& quote = row.quote;
    return fmt::format("  {} {} {:>12} {}{}", padTo(printable(quote.symbol), 10),
                       padTo(printable(quote.name), 28), priceText(quote.price),
                       printable(quote.currency),
                       row.change ? "  " + percentText(row.change->percent) : "");
}

std::string incidentLine(const kit::StatusContent::Incident& incident, std::string_view word) {
    return fmt::format(
        "{}: {}{}{}", printable(incident.service), rawValue(incident.level),
        incident.started ? fmt::format(" {} {}", word, momentText(*incident.started)) : "",
        incident.message.empty() ? "" : ". " + printable(incident.message));
}

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
    const auto content =
        kit::countdown(*reading.value, panel.options.eventTerms,
                       [&](Instant then) { return daysBetween(holdings.now(), then); });
    Lines lines;
    if (content.next) lines.push_back(countdownLine(*content.next));
    for (const auto& event : content.others) {
        if (lines.size() == lineCount(panel)) break;
        lines.push_back(countdownLine(event));
    }
    if (lines.empty()) lines.push_back(app::noRowText(panel.kind).toStdString());
    addState(lines, holdings, reading);
    return lines;
}

Lines stockLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto range =
        kit::enumFromRaw<QuoteRange>(panel.options.stockRange).value_or(QuoteRange::month);
    const ShareQuotes quotes(holdings.session());
    const auto& charted = quotes.over(range);
    const auto* newest = quotes.newest();
    if (!newest)
        return nothingYet(holdings, charted, fmt::format("quote --range {}", rawValue(range)));

    const auto content = kit::quoteContent(*newest->value, newest->fetchedAt);
    Lines lines{
        fmt::format("{} {}  {}  {}{}", priceText(content.price), printable(content.currency),
                    content.change ? changeText(*content.change) : "", printable(content.market),
                    content.pricedAt ? ", " + momentText(*content.pricedAt) : "")};
    if (content.isOld) lines.emplace_back("The service itself has only old figures.");
    if (charted.value) {
        for (auto& line :
             quoteChart(*charted.value, std::min<std::size_t>(holdings.width() - 4, 72)))
            lines.push_back(std::move(line));
        const auto events = cached(holdings, kFiles.events());
        const auto marked = events.value ? markedEvents(*events.value, panel.options.eventTerms)
                                         : std::vector<kit::AppleCalendarEvent>();
        for (const auto& event :
             kit::eventsOnChart(charted.value->points, marked, holdings.now(), daysBetween))
            lines.push_back(fmt::format("{}  {}", dayText(event.starts), printable(event.title)));
    } else {
        lines.push_back(fmt::format(
            "No prices of this range yet; brell quote --range {} fetches them.", rawValue(range)));
    }
    addState(lines, holdings, charted.value ? charted : *newest);
    return lines;
}

Lines suppliersLines(PanelHoldings& holdings) {
    const auto reading = cached(holdings, kFiles.board());
    if (!reading.value) return nothingYet(holdings, reading, "board");
    const ShareQuotes quotes(holdings.session());
    const auto* share = quotes.newest();
    Lines lines;
    for (const auto& group : kit::boardGroups(*reading.value, share ? &*share->value : nullptr)) {
        lines.push_back(printable(group.name));
        for (const auto& row : group.rows) lines.push_back(boardLine(row));
    }
    if (lines.empty()) lines.push_back(app::noRowText(kit::PanelKind::suppliers).toStdString());
    addState(lines, holdings, reading);
    return lines;
}

Lines softwareLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto content = kit::softwareContent(cached(holdings, kFiles.releases()),
                                              panel.options.platforms, holdings.now());
    if (!content.condition.isKnown()) return nothingYet(holdings, content.condition, "releases");
    Lines lines;
    const auto text = [](const std::optional<kit::SoftwareRelease>& release) {
        return release ? fmt::format("{} ({})", app::versionText(*release).toStdString(),
                                     printable(release->build))
                       : std::string("none");
    };
    for (const auto& [platform, latest, isNew] : content.rows) {
        lines.push_back(fmt::format("{} {} beta {}{}", padTo(printable(platform.platform), 10),
                                    padTo(text(platform.current), 20), text(platform.beta),
                                    isNew ? ", new" : ""));
    }
    if (lines.empty()) lines.push_back(app::noRowText(panel.kind).toStdString());
    addState(lines, holdings, content.condition);
    return lines;
}

Lines releasesLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto content =
        kit::releasesContent(cached(holdings, kFiles.releases()),
                             holdings.session().storeForReading().builds().newest(kit::kMostBuilds),
                             panel.options.platforms, holdings.now());
    if (!content.condition.isKnown()) return nothingYet(holdings, content.condition, "releases");
    Lines lines;
    for (const auto& [build, isNew] : content.rows) {
        if (lines.size() == lineCount(panel)) break;
        const auto& release = build.release;
        lines.push_back(fmt::format("{} {} ({}){}",
                                    padTo(ageText(release.published, holdings.now()), 11),
                                    printable(kit::titleOf(build.platform, release)),
                                    printable(release.build), isNew ? ", new" : ""));
    }
    if (lines.empty()) lines.push_back(app::noRowText(panel.kind).toStdString());
    addState(lines, holdings, content.condition);
    return lines;
}

Lines statusLines(PanelHoldings& holdings, const PanelSpec& panel) {
    const auto content = kit::statusContent(
        cached(holdings, kFiles.status(kit::StatusFeed::consumer)),
        cached(holdings, kFiles.status(kit::StatusFeed::developer)), holdings.now());
    if (!content.condition.isKnown()) return nothingYet(holdings, content.condition, "status");
    Lines lines;
    for (const auto& incident : content.ongoing) lines.push_back(incidentLine(incident, "since"));
    if (content.isAllUp()) lines.emplace_back("All services are up.");
    lines.push_back(fmt::format("{} of {} consumer services are up.", content.consumer->up,
                                content.consumer->all));
    lines.push_back(developerText(content.developer, holdings.now()));
    if (!content.recent.empty()) {
        lines.push_back(fmt::format("{} {} in 14 days:", content.recent.size(),
                                    content.recent.size() == 1 ? "incident" : "incidents"));
    }
    for (const auto& incident : content.recent) {
        if (lines.size() >= lineCount(panel)) break;
        lines.push_back("  " + incidentLine(incident, "from") +
                        (incident.lasted ? " (" + spanText(*incident.lasted) + ")" : ""));
    }
    addState(lines, holdings, content.condition);
    return lines;
}

}  // namespace cli
