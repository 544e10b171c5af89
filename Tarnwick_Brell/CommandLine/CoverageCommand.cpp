#include <algorithm>
#include <memory>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Archive/StoryArchiveAPI.h"
#include "NewsroomKit/Panels/CoverageFinder.h"
#include "Tarnwick_Brell/CommandLine/AnalysisText.h"
#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"

namespace cli {

namespace {

using Archived = std::vector<kit::ArchivedStory>;

struct CoverageOptions {
    std::string story{};
    bool wireOnly = false;
};

/// The archive is asked in pages, and for no more than this.
constexpr std::int64_t kPage = 500;
constexpr std::size_t kMostArchived = 5'000;

/// The stories on the wire that tell the same news as the named one, which is among them.
std::vector<kit::Story> sameNews(Session& session, const app::StoredStory& named) {
    const app::Subjects subjects(session.storeForReading(),
                                 {.query = {.includesSetAside = true},
                                  .from = named.story.publishedAt - 2 * kit::kCoverageMargin,
                                  .now = session.now()});
    const auto news = subjects.news();
    std::vector<kit::Story> stories;
    for (const auto& cluster : news.clusters) {
        const std::set<std::string_view> ids(cluster.storyIDs.begin(), cluster.storyIDs.end());
        if (!ids.contains(named.story.id)) continue;
        for (const auto& story : news.stories) {
            if (ids.contains(story.story->id)) stories.push_back(*story.story);
        }
    }
    if (stories.empty()) stories.push_back(named.story);
    return stories;
}

/// Reads the archive around the stories. Throws WorkFailed.
Archived archiveAround(Session& session, const std::vector<kit::Story>& stories,
                       const kit::CurlTransport::Options& network) {
    const auto [first, last] =
        std::ranges::minmax_element(stories, {}, [](const auto& s) { return s.publishedAt; });
    const kit::ArchivePeriod period{
        kit::secondsSince1970(first->publishedAt - kit::kCoverageMargin),
        kit::secondsSince1970(last->publishedAt + kit::kCoverageMargin)};
    Archived found;
    while (found.size() < kMostArchived) {
        auto page = askArchive<kit::StoryArchiveAPI>(
            session, network, [&](const kit::StoryArchiveAPI& api) {
                return api.stories(period, static_cast<std::int64_t>(found.size()), kPage);
            });
        const bool isLast =
            page.items.empty() ||
            std::cmp_greater_equal(found.size() + page.items.size(), page.total.value);
        std::ranges::move(page.items, std::back_inserter(found));
        if (isLast) break;
    }
    return found;
}

boost::json::object itemRecord(const kit::CoverageItem& item) {
    boost::json::object record{{"outlet", item.outlet},
                               {"title", item.title},
                               {"url", kit::maskedLogins(item.url)},
                               {"at", kit::encode(item.at)},
                               {"dayOnly", item.isDayOnly}};
    if (item.storyID) record["story"] = *item.storyID;
    record["credits"] = kit::encode(item.credits);
    return record;
}

void printFound(Session& session, const kit::CoverageFinder& found,
                const std::optional<std::string>& failure) {
    if (session.options().json) {
        boost::json::array items;
        for (const auto& item : found.items) items.push_back(itemRecord(item));
        boost::json::object record{{"outlets", found.outlets},
                                   {"here", found.outletsHere},
                                   {"items", std::move(items)},
                                   {"attribution", kit::encode(found.attribution)}};
        if (failure) record["archiveError"] = *failure;
        return printValue(session, record);
    }
    session.out().line(fmt::format("{} {}, {} of them here. {}", found.outlets,
                                   found.outlets == 1 ? "outlet" : "outlets", found.outletsHere,
                                   printable(found.attribution.sentence)));
    TextTable table({Column::whole("when"), Column::whole("outlet"), Column::cut("headline", 30),
                     Column::cut("credits").dropped(1), Column::whole("story").dropped(2)});
    for (const auto& item : found.items) {
        std::string credits;
        for (const auto& name : item.credits) credits += (credits.empty() ? "" : ", ") + name;
        table.add({publishedText(item.at, item.isDayOnly), printable(item.outlet),
                   printable(item.title), printable(credits), item.storyID.value_or("archive")});
    }
    table.print(session.out());
}

int runCoverage(Session& session, const CoverageOptions& options) {
    const auto network = session.network();
    const auto stories = sameNews(session, storyNamed(session.storeForReading(), options.story));
    Archived archive;
    std::optional<std::string> failure;
    try {
        if (!options.wireOnly) archive = archiveAround(session, stories, network);
    } catch (const WorkFailed& error) {
        failure = error.what();
    }
    std::vector<const kit::Story*> pointers;
    for (const auto& story : stories) pointers.push_back(&story);
    printFound(session,
               kit::coverageFinder(pointers, archive,
                                   session.storeForReading().corrections().overlay().get()),
               failure);
    if (failure) throw WorkFailed("The archive is missing here: " + *failure);
    return kDone;
}

}  // namespace

void addCoverageCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<CoverageOptions>();
    auto command = app.subcommand("coverage", "Who else ran a story, here and in the archive");
    command.option("ID", options->story, "The story's id or its beginning, as brell wire shows it")
        .required();
    command.flag("--wire-only", options->wireOnly, "Do not ask the story archive");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runCoverage(session, *options); };
    });
}

}  // namespace cli
