#include <algorithm>
#include <memory>

#include <fmt/format.h>

#include "NewsroomKit/Panels/TopStories.h"
#include "Tarnwick_Brell/CommandLine/AnalysisText.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"

namespace cli {

namespace {

using kit::TopStory;

boost::json::object topRecord(const TopStory& top) {
    boost::json::array outlets;
    for (const auto& outlet : top.outlets) outlets.push_back(mentionRecord(outlet));
    return {{"story", mentionRecord(top.first)},
            {"outlets", std::move(outlets)},
            {"sourcing", kit::rawValue(top.sourcing)},
            {"newest", kit::encode(top.newest)},
            {"lastHour", top.lastHour},
            {"unread", top.unread},
            {"score", top.score},
            {"attribution", kit::encode(top.attribution)}};
}

std::string whoColumn(const TopStory& top) {
    const auto who = app::leaderText(top.attribution, top.outlets).toStdString();
    const auto lead = app::leadText(top.attribution, top.outlets).toStdString();
    return printable(lead.empty() ? who : who + ", " + lead);
}

int runTop(Session& session, const AnalysisOptions& options) {
    const auto subjects = subjectsOf(session, options.query,
                                     std::chrono::ceil<std::chrono::days>(kit::kTopStoriesSpan));
    auto top = kit::topStories(subjects.news());
    top.resize(std::min(top.size(), static_cast<std::size_t>(options.limit)));
    if (session.options().json) {
        boost::json::array records;
        for (const auto& story : top) records.push_back(topRecord(story));
        printValue(session, std::move(records));
        return kDone;
    }
    if (top.empty()) {
        session.advise("No news of several outlets in the last 48 hours.");
        return kDone;
    }
    TextTable table({Column::whole("outlets"), Column::whole("sourcing").dropped(2),
                     Column::cut("headline", 30), Column::cut("first").dropped(3),
                     Column::whole("last").dropped(1), Column::whole("story")});
    for (const auto& story : top) {
        const auto growth = story.lastHour > 0 ? fmt::format(" (+{})", story.lastHour) : "";
        table.add({std::to_string(story.outlets.size()) + growth,
                   std::string(label(story.sourcing)), printable(story.first.title),
                   whoColumn(story), ageText(story.newest, session.now()), story.first.storyID});
    }
    table.print(session.out());
    return kDone;
}

}  // namespace

void addTopCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<AnalysisOptions>();
    auto command = app.subcommand("top", "The news that most outlets cover now");
    options->query.addTo(command);
    command.number("--limit", options->limit, {1, kit::kMostTopStories}, "Show at most this many");
    command.footer(
        "Ranked by outlets, sourcing and freshness; (+2) outlets came in the last hour.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runTop(session, *options); };
    });
}

}  // namespace cli
