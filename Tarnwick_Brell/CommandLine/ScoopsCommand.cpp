#include <memory>

#include <fmt/format.h>

#include "NewsroomKit/Panels/Scoops.h"
#include "Tarnwick_Brell/CommandLine/AnalysisText.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"

namespace cli {

namespace {

int runScoops(Session& session, const AnalysisOptions& options) {
    const std::chrono::days span(options.days);
    const auto subjects = subjectsOf(session, options.query, span);
    const auto scoops = kit::scoops(subjects.news(), span, static_cast<std::size_t>(options.limit));
    if (session.options().json) {
        boost::json::array records;
        for (const auto& scoop : scoops) {
            records.push_back({{"story", mentionRecord(scoop.story)},
                               {"followers", scoop.followers},
                               {"attribution", kit::encode(scoop.attribution)}});
        }
        printValue(session, std::move(records));
        return kDone;
    }
    if (scoops.empty()) {
        session.advise(fmt::format(
            "No scoop in the last {} days: nobody told before the others what Apple had not told.",
            options.days));
        return kDone;
    }
    TextTable table({Column::whole("when"), Column::whole("outlet"), Column::cut("headline", 30),
                     Column::cut("lead").dropped(1), Column::whole("followed").dropped(2),
                     Column::whole("story")});
    for (const auto& scoop : scoops) {
        table.add({ageText(scoop.at(), session.now()), printable(*scoop.attribution.first),
                   printable(scoop.story.title),
                   printable(app::leadText(scoop.attribution, {}).toStdString()),
                   std::to_string(scoop.followers), scoop.story.storyID});
    }
    table.print(session.out());
    return kDone;
}

}  // namespace

void addScoopsCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<AnalysisOptions>();
    auto command = app.subcommand("scoops", "Who had news before the others");
    options->query.addTo(command);
    command.number("--days", options->days, {1, 90}, "How many days to look back");
    command.number("--limit", options->limit, {1, 1'000}, "Show at most this many");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runScoops(session, *options); };
    });
}

}  // namespace cli
