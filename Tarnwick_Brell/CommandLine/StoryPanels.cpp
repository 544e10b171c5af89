#include "Tarnwick_Brell/CommandLine/StoryPanels.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Panels/Brief.h"
#include "NewsroomKit/Panels/Claims.h"
#include "NewsroomKit/Panels/Coverage.h"
#include "NewsroomKit/Panels/PanelSpan.h"
#include "NewsroomKit/Panels/Scoops.h"
#include "NewsroomKit/Panels/TopStories.h"
#include "Tarnwick_Brell/CommandLine/PanelState.h"
#include "Tarnwick_Brell/CommandLine/PanelText.h"
#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Presentation/BriefText.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"
#include "Tarnwick_Brell/Trackers/TrackerHistories.h"

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

/// At least one line: without rows, why there are none.
PanelLines orEmptyText(PanelLines lines, const MatchedNews& matched, kit::PanelKind kind,
                       const StoryQuery& query) {
    if (lines.empty()) {
        const auto text = matched.isEmpty() ? app::noStoryText(kind, query, kit::spanOf(kind))
                                            : app::noRowText(kind);
        lines.push_back(text.toStdString());
    }
    return lines;
}

PanelLines newestLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query,
                       PanelHoldings::Origin origin) {
    PanelLines lines;
    for (const auto& stored : holdings.newest(query, origin, lineCount(panel)))
        lines.push_back(storyLine(holdings, stored.story));
    if (lines.empty()) lines.push_back(app::noStoryText(panel.kind, query).toStdString());
    return lines;
}

std::string countLine(const kit::BriefContent& content) {
    return fmt::format("{} {} from {} {}{}", content.stories,
                       content.stories == 1 ? "new story" : "new stories", content.outlets,
                       content.outlets == 1 ? "outlet" : "outlets",
                       content.since ? " since your last look." : " in the last 24 hours.");
}

std::vector<kit::TrackerChange> trackerChanges(PanelHoldings& holdings, const StoryQuery& query,
                                               kit::Instant since) {
    const app::TrackedFiles files;
    const auto consumer = cached(holdings, files.status(kit::StatusFeed::consumer));
    const auto developer = cached(holdings, files.status(kit::StatusFeed::developer));
    const auto releases = cached(holdings, files.releases());
    const auto log = app::loadLogState(holdings.session().storeForReading());
    auto answers = kit::TrackerAnswers::of(consumer, developer, releases);
    answers.records = log.records;
    answers.findings = log.findings;
    return kit::trackerChanges(answers, query.compiled(), since);
}

}  // namespace

PanelLines streamLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query) {
    return newestLines(holdings, panel, query, PanelHoldings::Origin::any);
}

PanelLines appleLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query) {
    return newestLines(holdings, panel, query, PanelHoldings::Origin::apple);
}

PanelLines briefPanelLines(PanelHoldings& holdings, const StoryQuery& query) {
    const auto now = holdings.now();
    const auto lastLook = holdings.lastLook();
    const MatchedNews matched(holdings, query);
    const auto content = kit::brief(matched.news(), lastLook);
    const auto items =
        kit::briefItems(content, trackerChanges(holdings, query, kit::briefStart(lastLook, now)));
    if (items.empty()) return {app::nothingNewText(content).toStdString()};
    PanelLines lines;
    if (!content.isEmpty()) lines.push_back(countLine(content));
    for (const auto& item : items) {
        const auto sources = app::briefSources(item, now, app::Style::plain());
        lines.push_back(app::briefSentence(item, now, app::Style::plain()).toStdString() +
                        holdings.session().out().dim(" – " + sources.toStdString()));
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
    return orEmptyText(std::move(lines), matched, panel.kind, query);
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
    return orEmptyText(std::move(lines), matched, panel.kind, query);
}

PanelLines coverageLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query) {
    PanelLines lines;
    const MatchedNews matched(holdings, query);
    for (const auto& row : kit::coverage(matched.news())) {
        if (lines.size() == lineCount(panel)) break;
        lines.push_back(fmt::format(
            "{} {:>4} {}, last {}{}", padTo(printable(row.outlet), kOutletColumns), row.stories,
            row.stories == 1 ? "story" : "stories", agoText(row.last, holdings.now()),
            row.timesFirst > 0 ? fmt::format(", first {}×", row.timesFirst) : ""));
    }
    return orEmptyText(std::move(lines), matched, panel.kind, query);
}

PanelLines scoopsLines(PanelHoldings& holdings, const PanelSpec& panel, const StoryQuery& query) {
    PanelLines lines;
    const MatchedNews matched(holdings, query);
    for (const auto& scoop : kit::scoops(matched.news())) {
        if (lines.size() >= lineCount(panel)) break;
        lines.push_back(fmt::format("{} {} {}", ageColumn(holdings, scoop.at()),
                                    padTo(printable(*scoop.attribution.first), kOutletColumns),
                                    printable(scoop.story.title)));
        lines.push_back(holdings.session().out().dim(
            "    " + app::leadText(scoop.attribution, {}).toStdString()));
    }
    return orEmptyText(std::move(lines), matched, panel.kind, query);
}

}  // namespace cli
