#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Panels/PressContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/CourtActions.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Trackers/FilingRecords.h"
#include "Tarnwick_Brell/Trackers/TrackedRecords.h"

namespace cli {

namespace {

using kit::PressRow;
using kit::PressSheet;
using PressFile = app::TrackedFile<PressSheet>;

constexpr std::size_t kMostReleases = 2'000;

struct PressOptions {
    std::string address;
    std::string name;
    std::optional<std::string> since;
    bool stored = false;
};

struct PressView {
    NamedReadings<PressSheet> readings;
    std::vector<PressRow> rows;
};

/// Those that releases since then can have the texts of.
std::vector<kit::FollowedFiling> filingsIn(app::LocalStore& store,
                                           std::optional<kit::Instant> since) {
    constexpr std::size_t most = 2'000;
    if (since) *since -= std::chrono::days(1);
    return app::followedFilings(store.filings().newest(most, {}, since));
}

PressView readPress(Session& session, const PressOptions& options,
                    std::optional<kit::Instant> since) {
    const auto files = app::pressFiles(app::FollowedFeeds(session.defaults()),
                                       session.defaults().serviceAddress());
    std::vector<std::string> names;
    for (const auto& file : files) names.push_back(file.name);
    const auto fileOf = [&](const app::TrackedFiles&, const std::string& name) {
        return *std::ranges::find(files, name, &PressFile::name);
    };
    const auto rowsIn = [&](app::LocalStore& store) {
        std::vector<kit::PressItem> items;
        for (auto& [release, feed, firstSeen] :
             app::seenReleases(store.pressReleases().newest(kMostReleases, {}, since)))
            items.push_back({std::move(release), std::move(feed), firstSeen});
        return kit::pressRows(std::move(items), filingsIn(store, since), {.since = since});
    };
    if (options.stored) {
        auto readings = fetchOrLoadEach<PressSheet>(session, true, names, fileOf);
        return {std::move(readings), rowsIn(session.storeForReading())};
    }
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        auto readings = fetchEach<PressSheet>(session, fetcher, store, names, fileOf);
        return PressView{std::move(readings), rowsIn(store)};
    });
}

boost::json::object pressFeedObject(const NamedReading<PressSheet>& file) {
    boost::json::object object{{"feed", file.name}};
    if (const auto& sheet = file.reading.value) {
        object["channel"] = sheet->channel;
        object["dropped"] = sheet->dropped;
    }
    addFetchState(object, {file.reading.fetchedAt, file.reading.error});
    return object;
}

boost::json::object releaseObject(const PressRow& row) {
    auto object = kit::encode(row.item.release).get_object();
    object["feed"] = row.item.feed;
    object["firstSeen"] = kit::encode(row.item.firstSeen);
    if (row.filing) object["filing"] = row.filing->accession;
    return object;
}

void printPress(Session& session, const PressView& view) {
    if (view.rows.empty()) {
        session.out().line(
            "No release of Apple or of a company that is followed has been seen yet.");
        return;
    }
    TextTable table({Column::whole("published"), Column::cut("company", 12),
                     Column::cut("release", 24), Column::whole("also filed").dropped(1)});
    for (const auto& row : view.rows) {
        const auto& release = row.item.release;
        table.add({momentText(release.published.value_or(row.item.firstSeen)),
                   printable(row.company), printable(release.title),
                   row.filing ? printable(row.filing->form) : ""});
    }
    table.print(session.out());
}

int showPress(Session& session, const PressOptions& options) {
    std::optional<kit::Instant> since;
    if (options.since) since = parseTimeArgument(*options.since, session.now());
    const auto view = readPress(session, options, since);
    requireSome(view.readings, options.stored);
    if (session.options().json) {
        boost::json::array feeds, releases;
        for (const auto& file : view.readings) feeds.push_back(pressFeedObject(file));
        for (const auto& row : view.rows) releases.push_back(releaseObject(row));
        session.out().line(boost::json::serialize(
            boost::json::object{{"feeds", std::move(feeds)}, {"releases", std::move(releases)}}));
    } else {
        printPress(session, view);
    }
    return finishTrackers(session, options.stored, fetchStatesOf(view.readings));
}

int addPressFeed(Session& session, const PressOptions& options) {
    const auto address = feedAddressIn(options.address);
    app::FollowedFeeds(session.defaults()).addPressFeed({address, options.name});
    session.out().line(kit::maskedSecrets(address) + " is followed.");
    return kDone;
}

int removePressFeed(Session& session, const PressOptions& options) {
    if (!app::FollowedFeeds(session.defaults()).removePressFeed(feedAddressIn(options.address)))
        throw WrongUsage("There is no such feed.");
    session.out().line("The feed is no longer followed.");
    return kDone;
}

}  // namespace

void addPressCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<PressOptions>();
    auto press =
        app.subcommand("press", "Press releases of Apple and of the companies on the board");
    press.option("--since", options->since, "Only releases since then: 6h, 2d, 2026-11-02")
        .shownAs("WHEN");
    addStoredFlag(press, options->stored);
    press.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return showPress(session, *options); };
    });
    auto add = press.subcommand("add", "Add the feed of a company or of a wire's channel");
    add.option("ADDRESS", options->address, "The address of the feed").required();
    add.option("--name", options->name, "The company's name").shownAs("NAME");
    add.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return addPressFeed(session, *options); };
    });
    auto remove = press.subcommand("remove", "Remove a feed that you have added");
    remove.option("ADDRESS", options->address, "The address of the feed").required();
    remove.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return removePressFeed(session, *options); };
    });
}

}  // namespace cli
