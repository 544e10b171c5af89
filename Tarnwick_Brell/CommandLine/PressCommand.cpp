#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Panels/FilingsContent.h"
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
    std::vector<app::SeenRelease> releases;
    std::vector<kit::FollowedFiling> filings;  ///< which may have the same texts
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
    const auto releasesIn = [&](app::LocalStore& store) {
        return app::seenReleases(store.pressReleases().newest(kMostReleases, {}, since));
    };
    if (options.stored) {
        auto readings = fetchOrLoadEach<PressSheet>(session, true, names, fileOf);
        auto& store = session.storeForReading();
        return {std::move(readings), releasesIn(store), filingsIn(store, since)};
    }
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        auto readings = fetchEach<PressSheet>(session, fetcher, store, names, fileOf);
        return PressView{std::move(readings), releasesIn(store), filingsIn(store, since)};
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

boost::json::object releaseObject(const PressView& view, const app::SeenRelease& seen) {
    auto object = kit::encode(seen.release).get_object();
    object["feed"] = seen.feed;
    object["firstSeen"] = kit::encode(seen.firstSeen);
    if (const auto* const filing = kit::filingOf(view.filings, seen.release))
        object["filing"] = filing->filing.accession;
    return object;
}

void printPress(Session& session, const PressView& view) {
    if (view.releases.empty()) {
        session.out().line(
            "No release of Apple or of a company that is followed has been seen yet.");
        return;
    }
    TextTable table({Column::whole("published"), Column::cut("company", 12),
                     Column::cut("release", 24), Column::whole("also filed").dropped(1)});
    for (const auto& [release, feed, firstSeen] : view.releases) {
        const auto* const filing = kit::filingOf(view.filings, release);
        table.add({momentText(release.published.value_or(firstSeen)),
                   printable(release.company.value_or(release.symbol.value_or(""))),
                   printable(release.title), filing ? printable(filing->filing.form) : ""});
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
        for (const auto& seen : view.releases) releases.push_back(releaseObject(view, seen));
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
