#include "Tarnwick_Brell/CommandLine/StoryPanels.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Panels/Brief.h"
#include "NewsroomKit/Panels/Claims.h"
#include "NewsroomKit/Panels/Coverage.h"
#include "NewsroomKit/Panels/Scoops.h"
#include "NewsroomKit/Panels/TopStories.h"
#include "Tarnwick_Brell/CommandLine/PanelText.h"
#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::PanelSpec;
using kit::StoryMention;
using kit::StoryQuery;

constexpr std::size_t kAgeColumns = 11;
constexpr std::size_t kOutletColumns = 22;

std::string ageColumn(PanelHoldings& holdings, kit::Instant then) {
    return padTo(ageText(then, holdings.now()), kAgeColumns);
}

std::string storyLine(PanelHoldings& holdings, const kit::Story& story) {
    return fmt::format("{} {} {}", ageColumn(holdings, story.publishedAt),
                       padTo(outletLine(story), kOutletColumns), printable(story.title));
}

std::string outletsText(const std::vector<StoryMention>& outlets) {
    std::string text;
    for (const auto& mention : outlets)
        text += (text.empty() ? "" : ", ") + printable(mention.outlet);
    return text;
}

std::string sourcingText(kit::Sourcing sourcing) {
    const auto text = label(sourcing);
    return text.empty() ? "" : " · " + std::string(text);
}

/// At least one line, whatever there is.
PanelLines orElse(PanelLines lines, std::string_view nothing) {
    if (lines.empty()) lines.emplace_back(nothing);
    return lines;
}

PanelLines newestLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query,
                       PanelHoldings::Origin origin, std::string_view nothing) {
    PanelLines lines;
    for (const auto& stored : holdings.newest(query, origin, lineCount(panel)))
        lines.push_back(storyLine(holdings, stored.story));
    return orElse(std::move(lines), nothing);
}

}  // namespace

PanelLines streamLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query) {
    return newestLines(holdings, panel, query, PanelHoldings::Origin::any, "No story matches.");
}

PanelLines appleLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query) {
    return newestLines(holdings, panel, query, PanelHoldings::Origin::apple,
                       "No post of Apple's matches.");
}

PanelLines briefPanelLines(PanelHoldings& holdings, const StoryQuery& query) {
    PanelLines lines;
    const MatchedNews matched(holdings, query);
    for (const auto& line : kit::briefLines(kit::brief(matched.news(), holdings.lastLook()))) {
        lines.push_back(printable(line.text));
        if (!line.sources.empty()) {
            lines.back() += holdings.session().out().dim(" – " + outletsText(line.sources));
        }
    }
    return lines;
}

PanelLines topStoriesLines(PanelHoldings& holdings, const PanelSpec& panel,
                           const StoryQuery& query) {
    PanelLines lines;
    const MatchedNews matched(holdings, query);
    for (const auto& top : kit::topStories(matched.news())) {
        if (lines.size() >= lineCount(panel)) break;
        lines.push_back(fmt::format("{:>2} outlets{}  {}", top.outlets.size(),
                                    sourcingText(top.sourcing), printable(top.first.title)));
        lines.push_back(holdings.session().out().dim("    " + outletsText(top.outlets)));
    }
    return orElse(std::move(lines), "No news that several outlets cover.");
}

PanelLines claimsLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query) {
    PanelLines lines;
    const MatchedNews matched(holdings, query);
    for (const auto& claim : kit::claims(matched.news())) {
        if (lines.size() >= lineCount(panel)) break;
        lines.push_back(fmt::format("{} {}", padTo(label(claim.state), kAgeColumns),
                                    printable(claim.first.title)));
        std::string who = fmt::format("    {}, {}", printable(claim.first.outlet),
                                      agoText(claim.first.publishedAt, holdings.now()));
        if (claim.outlets > 1) who += fmt::format(", {} outlets", claim.outlets);
        if (claim.answer) {
            who += fmt::format("; {}, {}", printable(claim.answer->outlet),
                               agoText(claim.answer->publishedAt, holdings.now()));
        }
        lines.push_back(holdings.session().out().dim(who));
    }
    return orElse(std::move(lines), "No reports or rumors match.");
}

PanelLines coverageLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query) {
    PanelLines lines;
    const MatchedNews matched(holdings, query);
    for (const auto& row : kit::coverage(matched.news())) {
        if (lines.size() == lineCount(panel)) break;
        lines.push_back(fmt::format(
            "{} {:>4} {}, last {}{}", padTo(printable(row.outlet), kOutletColumns), row.stories,
            row.stories == 1 ? "story" : "stories", ageText(row.last, holdings.now()),
            row.timesFirst > 0 ? fmt::format(", first {}×", row.timesFirst) : ""));
    }
    return orElse(std::move(lines), "No outlet covers it.");
}

PanelLines scoopsLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query) {
    PanelLines lines;
    const MatchedNews matched(holdings, query);
    for (const auto& scoop : kit::scoops(matched.news())) {
        if (lines.size() >= lineCount(panel)) break;
        lines.push_back(fmt::format("{} {} {}", ageColumn(holdings, scoop.first.publishedAt),
                                    padTo(printable(scoop.first.outlet), kOutletColumns),
                                    printable(scoop.first.title)));
        lines.push_back(holdings.session().out().dim(fmt::format(
            "    {} before {}", spanText(scoop.lead()), printable(scoop.second.outlet))));
    }
    return orElse(std::move(lines), "No news that several outlets tell.");
}

}  // namespace cli
