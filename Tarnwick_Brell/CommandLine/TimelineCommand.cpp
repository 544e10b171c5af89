#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Panels/TimelineContent.h"
#include "NewsroomKit/Queries/TermList.h"
#include "Tarnwick_Brell/CommandLine/AnalysisText.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/RecordLookup.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace cli {

namespace {

struct TimelineOptions {
    std::string terms{};
    std::string beat{};
    std::int64_t days = 730;
    bool exported = false;
};

kit::StoryQuery subjectQuery(Session& session, const TimelineOptions& options) {
    if (options.terms.empty() == options.beat.empty())
        throw WrongUsage("Say what the timeline is about, or name a beat with --beat.");
    if (options.beat.empty()) {
        QueryOptions query{.any = options.terms};
        return query.query();
    }
    const auto records = app::BeatRecords::read(session.storeForReading().beats());
    return readable(named(records.entries(), options.beat, "beat"), "beat").query;
}

void printTimelineRecords(Session& session, const kit::TimelineContent& content) {
    boost::json::array stages;
    for (const auto& row : content.stages) {
        auto record = kit::encode(row.stage).as_object();
        record["title"] = row.story ? row.story->title : row.signal->title;
        if (row.story) record["outlet"] = row.story->outlet;
        stages.push_back(std::move(record));
    }
    printValue(session, boost::json::object{{"stages", std::move(stages)},
                                            {"signals", kit::encode(content.changes)},
                                            {"stories", content.stories},
                                            {"outlets", content.outlets}});
}

void printStages(Session& session, const kit::TimelineContent& content) {
    if (content.stages.empty()) {
        session.advise(fmt::format("None of {} {} is a rumor, a report, or confirmed by Apple.",
                                   content.stories, content.stories == 1 ? "story" : "stories"));
        return;
    }
    TextTable table({Column::whole("when"), Column::whole("stage"), Column::whole("days later"),
                     Column::cut("outlet").dropped(1), Column::cut("headline", 30),
                     Column::whole("story").dropped(2)});
    for (const auto& row : content.stages) {
        table.add({dayText(row.stage.at), std::string(label(row.stage.stage)),
                   row.stage.days ? fmt::format("{:.1f}", *row.stage.days) : "",
                   row.story ? printable(row.story->outlet) : "",
                   printable(row.story ? row.story->title : row.signal->title),
                   row.stage.story.value_or("")});
    }
    table.print(session.out());
    for (const auto& signal : content.changes) {
        if (const auto at = signal.at())
            session.out().line(session.out().dim(dayText(*at) + "  " + printable(signal.title)));
    }
}

/// The builds and logged signals of the subject.
std::vector<kit::TimelineSignal> changesOf(app::LocalStore& store, const kit::StoryQuery& query) {
    // More than anybody reads.
    constexpr std::size_t kMostLogged = 2'000;
    auto changes = kit::buildSignals(store.builds().newest(kit::kMostBuilds), query);
    const app::SignalSelection selection{.search = app::SearchText::anyOf(query.anyTerms)};
    if (selection.search.isEmpty()) return changes;
    const auto log = store.signalLog().newest(kMostLogged, selection);
    std::ranges::move(kit::loggedSignals(log, query), std::back_inserter(changes));
    return changes;
}

int runTimeline(Session& session, const TimelineOptions& options) {
    const auto query = subjectQuery(session, options);
    const app::Subjects subjects(session.storeForReading(),
                                 {.query = query,
                                  .from = session.now() - std::chrono::days(options.days),
                                  .now = session.now()});
    const auto content =
        kit::timelineContent(subjects.news().stories, changesOf(session.storeForReading(), query));
    if (session.options().json) {
        printTimelineRecords(session, content);
    } else if (options.exported) {
        session.out().write(kit::exportedTimeline(content));
    } else {
        printStages(session, content);
    }
    return kDone;
}

}  // namespace

void addTimelineCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<TimelineOptions>();
    auto command = app.subcommand("timeline", "How a subject went, from rumor to release");
    command.option("TERMS", options->terms, "What it is about; terms separated by commas");
    command.option("--beat", options->beat, "The subject of this beat instead").shownAs("NAME");
    command.number("--days", options->days, {1, 36'500}, "How many days to look back");
    command.flag("--tabs", options->exported, "Columns separated by tabs, for other programs");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runTimeline(session, *options); };
    });
}

}  // namespace cli
