#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Court/DocketSignals.h"
#include "NewsroomKit/Panels/CourtContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/CourtActions.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Trackers/TrackedRecords.h"

namespace cli {

namespace {

using kit::CourtContent;
using kit::CourtItem;
using kit::DocketSheet;
using DocketFile = app::TrackedFile<DocketSheet>;
using DocketReadings = NamedReadings<DocketSheet>;

// A followed case has some hundred entries a year.
constexpr std::size_t kMostEntries = 10'000;

struct DocketView {
    DocketReadings readings;
    std::vector<app::SeenEntry> entries;
};

std::vector<app::SeenEntry> entriesIn(app::LocalStore& store, const std::string& feed) {
    return app::seenEntries(store.docketEntries().newest(kMostEntries, feed));
}

DocketView readDockets(Session& session, const CourtOptions& options,
                       const std::vector<DocketFile>& files) {
    std::vector<std::string> names;
    for (const auto& file : files) names.push_back(file.name);
    const auto fileOf = [&](const app::TrackedFiles&, const std::string& name) {
        return *std::ranges::find(files, name, &DocketFile::name);
    };
    const auto feed = options.docket.empty() ? std::string() : names.front();
    if (options.stored) {
        auto readings = fetchOrLoadEach<DocketSheet>(session, true, names, fileOf);
        return {std::move(readings), entriesIn(session.storeForReading(), feed)};
    }
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        auto readings = fetchEach<DocketSheet>(session, fetcher, store, names, fileOf);
        return DocketView{std::move(readings), entriesIn(store, feed)};
    });
}

/// Why the case of a file is followed.
std::string caseNoteOf(const std::vector<app::FollowedCase>& cases, const std::string& feed) {
    for (const auto& one : cases) {
        if (app::docketFile(one.docket).name == feed) return one.note;
    }
    return {};
}

std::vector<CourtItem> itemsOf(const std::vector<app::SeenEntry>& entries,
                               const std::vector<app::FollowedCase>& cases) {
    std::vector<CourtItem> items;
    for (const auto& seen : entries)
        items.push_back({seen.entry, seen.firstSeen, caseNoteOf(cases, seen.feed)});
    return items;
}

boost::json::object feedObject(const NamedReading<DocketSheet>& file,
                               const std::vector<app::FollowedCase>& cases, kit::Instant now) {
    boost::json::object object{{"feed", file.name}};
    if (const auto note = caseNoteOf(cases, file.name); !note.empty()) object["note"] = note;
    if (const auto& sheet = file.reading.value) {
        if (sheet->scope) object["scope"] = *sheet->scope;
        object["partial"] = sheet->partial;
        if (sheet->built) object["built"] = kit::encode(*sheet->built);
        const auto missing = kit::missingNumbers(sheet->entries);
        const bool isCase = file.name.starts_with(app::kDocketPrefix);
        if (isCase && !missing.empty()) object["missing"] = missing;
        const auto silent = isCase ? std::nullopt : kit::silentSince(*sheet, now);
        if (silent) object["silentSince"] = kit::encode(*silent);
    }
    addFetchState(object, {file.reading.fetchedAt, file.reading.error});
    return object;
}

boost::json::object itemObject(const CourtItem& item) {
    auto object = kit::encode(item.entry).get_object();
    object["firstSeen"] = kit::encode(item.firstSeen);
    if (!item.note.empty()) object["note"] = item.note;
    return object;
}

void printFeeds(Output& out, const DocketReadings& readings,
                const std::vector<app::FollowedCase>& cases, kit::Instant now) {
    for (const auto& [name, reading] : readings) {
        const auto& sheet = reading.value;
        if (!sheet) continue;
        const bool isCase = name.starts_with(app::kDocketPrefix);
        const auto note = caseNoteOf(cases, name);
        const auto caseName = sheet->entries.empty() ? std::nullopt : sheet->entries[0].caseName;
        if (!note.empty()) out.line(out.dim(printable(caseName.value_or(name) + ": " + note)));
        if (isCase) {
            const auto missing = kit::missingNumbers(sheet->entries);
            if (!missing.empty()) {
                out.line(out.dim(printable(caseName.value_or(name)) +
                                 ": the feed lacks the entries " + missing + "."));
            }
            continue;
        }
        if (sheet->scope) out.line(out.dim(printable(name + ": " + *sheet->scope + ".")));
        if (const auto silent = kit::silentSince(*sheet, now))
            out.line(printable(name) + ": The feed has been silent since " + momentText(*silent) +
                     ".");
    }
}

std::string documentText(const kit::DocketEntry& entry) {
    if (!entry.paid) return "none";
    return *entry.paid ? "PACER, paid" : "free";
}

std::string dateText(const CourtItem& item) {
    if (!item.entry.date) return dayText(item.firstSeen);
    return item.entry.dayOnly ? namedDayText(*item.entry.date) : momentText(*item.entry.date);
}

void printItems(Output& out, const CourtContent& content) {
    TextTable table({Column::whole("filed"), Column::cut("case", 14), Column::whole("no."),
                     Column::cut("entry", 24), Column::whole("document").dropped(1)});
    for (const auto& item : content.items) {
        const auto& entry = item.entry;
        table.add({dateText(item),
                   printable(entry.caseName.value_or(entry.caseNumber.value_or(""))),
                   printable(entry.number.value_or("")),
                   printable(entry.text.empty() ? entry.kind : entry.text), documentText(entry)});
    }
    table.print(out);
    if (content.routine > 0) {
        out.line(out.dim(fmt::format("{} routine {} left out; --all shows {}.", content.routine,
                                     content.routine == 1 ? "entry is" : "entries are",
                                     content.routine == 1 ? "it" : "them")));
    }
}

std::vector<DocketFile> wantedFiles(const CourtOptions& options,
                                    const app::FollowedFeeds& followed) {
    if (options.docket.empty()) return app::docketFiles(followed);
    return {app::docketFile(docketIn(options.docket))};
}

int showCourt(Session& session, const CourtOptions& options) {
    const app::FollowedFeeds followed(session.defaults());
    const auto files = wantedFiles(options, followed);
    if (files.empty()) {
        if (session.options().json) {
            session.out().line(boost::json::serialize(boost::json::object{
                {"feeds", boost::json::array()}, {"entries", boost::json::array()}}));
        } else {
            session.advise(
                "No case is followed yet. brell court follow takes the address of a docket at "
                "CourtListener.");
        }
        return kDone;
    }
    kit::CourtFilter filter{.includesRoutine = options.all};
    if (options.since) filter.since = parseTimeArgument(*options.since, session.now());
    const auto view = readDockets(session, options, files);
    requireSome(view.readings, options.stored);
    const auto cases = followed.cases();
    const auto content = kit::courtContent(itemsOf(view.entries, cases), filter);
    auto& out = session.out();
    if (session.options().json) {
        boost::json::array feeds, entries;
        for (const auto& file : view.readings)
            feeds.push_back(feedObject(file, cases, session.now()));
        for (const auto& item : content.items) entries.push_back(itemObject(item));
        out.line(boost::json::serialize(
            boost::json::object{{"feeds", std::move(feeds)}, {"entries", std::move(entries)}}));
    } else {
        printFeeds(out, view.readings, cases, session.now());
        printItems(out, content);
    }
    return finishTrackers(session, options.stored, fetchStatesOf(view.readings));
}

using SharedCourtOptions = std::shared_ptr<CourtOptions>;

void addCase(arguments::Command& command, const SharedCourtOptions& options) {
    command
        .option("CASE", options->docket,
                "The address of the docket at CourtListener, or its number there")
        .required();
}

void addFeedAddress(arguments::Command& command, const SharedCourtOptions& options) {
    command.option("ADDRESS", options->address, "The address of the feed").required();
}

}  // namespace

void addCourtCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<CourtOptions>();
    auto court = app.subcommand("court", "New entries on the dockets of the cases that you follow");
    court.option("--case", options->docket, "Only this case, also one that isn't followed")
        .shownAs("CASE");
    court.flag("--new", options->newCases,
               "New cases with Apple as a party; needs the setting courtListenerToken");
    court.flag("--all", options->all, "Routine entries too");
    court.option("--since", options->since, "Only entries since then: 6h, 2d, 2026-11-02")
        .shownAs("WHEN");
    addStoredFlag(court, options->stored);
    court.whenChosen([options, &chosen] {
        chosen = [options](Session& session) {
            return options->newCases ? showNewCases(session, *options)
                                     : showCourt(session, *options);
        };
    });
    auto follow = addAction(court, chosen, options, "follow", "Follow a case", followCase);
    addCase(follow, options);
    follow.option("--note", options->note, "Why you follow it").shownAs("TEXT");
    auto unfollow =
        addAction(court, chosen, options, "unfollow", "Follow a case no longer", unfollowCase);
    addCase(unfollow, options);
    auto note = addAction(court, chosen, options, "note", "Say why you follow a case", noteCase);
    addCase(note, options);
    note.option("TEXT", options->note, "Why you follow it").required();
    auto add = addAction(court, chosen, options, "add",
                         "Add a court's own feed, of which Apple's cases are shown", addCourtFeed);
    addFeedAddress(add, options);
    add.option("--name", options->name, "The court's name").shownAs("NAME");
    auto remove =
        addAction(court, chosen, options, "remove", "Remove a court's feed", removeCourtFeed);
    addFeedAddress(remove, options);
}

}  // namespace cli
