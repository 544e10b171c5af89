#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Panels/FindingContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Presentation/FindingText.h"
#include "Tarnwick_Brell/Trackers/TrackedBackend.h"

namespace cli {

namespace {

using app::StoredFinding;
using kit::WatchedAnswer;
using BackendFile = app::TrackedFile<WatchedAnswer>;
using BackendReadings = NamedReadings<WatchedAnswer>;

// Files change some times a day.
constexpr std::size_t kMostFindings = 2'000;

struct BackendOptions {
    std::string source;
    std::optional<std::string> since;
    bool stored = false;
    std::optional<std::int64_t> number;
    bool lines = false;
};

struct WatchFacts {
    std::int64_t polls = 0;
    std::vector<std::string> volatilePaths;
};

struct BackendView {
    BackendReadings readings;
    std::vector<WatchFacts> watches;  ///< in the order of the readings
    std::vector<StoredFinding> findings;
};

std::vector<const kit::WatchedFile*> wantedWatches(const std::string& source) {
    std::vector<const kit::WatchedFile*> wanted;
    std::string ids;
    for (const auto& file : kit::watchedFiles()) {
        if (source.empty() || source == file.id) wanted.push_back(&file);
        ids += fmt::format("{}{}", ids.empty() ? "" : ", ", file.id);
    }
    if (wanted.empty())
        throw WrongUsage(fmt::format("There is no file \"{}\". There are: {}.", source, ids));
    return wanted;
}

BackendView viewIn(app::LocalStore& store, BackendReadings readings, const BackendOptions& options,
                   std::optional<kit::Instant> since) {
    BackendView view{std::move(readings), {}, {}};
    for (const auto* file : wantedWatches(options.source)) {
        const auto state = store.findings().watch(file->id).value_or(kit::WatchState());
        view.watches.push_back({state.polls, state.volatilePaths});
    }
    view.findings = store.findings().newest(kMostFindings, options.source, since);
    return view;
}

BackendView readBackend(Session& session, const BackendOptions& options) {
    std::optional<kit::Instant> since;
    if (options.since) since = parseTimeArgument(*options.since, session.now());
    std::vector<BackendFile> files;
    std::vector<std::string> names;
    for (const auto* file : wantedWatches(options.source)) {
        files.push_back(app::backendFile(*file));
        names.push_back(files.back().name);
    }
    const auto fileOf = [&](const app::TrackedFiles&, const std::string& name) {
        return *std::ranges::find(files, name, &BackendFile::name);
    };
    if (options.stored) {
        auto readings = fetchOrLoadEach<WatchedAnswer>(session, true, names, fileOf);
        return viewIn(session.storeForReading(), std::move(readings), options, since);
    }
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        auto readings = fetchEach<WatchedAnswer>(session, fetcher, store, names, fileOf);
        return viewIn(store, std::move(readings), options, since);
    });
}

boost::json::object watchedFileObject(const kit::WatchedFile& file,
                                      const NamedReading<WatchedAnswer>& answer,
                                      const WatchFacts& facts) {
    boost::json::object object{{"id", file.id},
                               {"name", file.name},
                               {"address", file.address},
                               {"kind", kit::rawValue(file.source)},
                               {"identity", file.identity},
                               {"everyMinutes", file.interval.count()},
                               {"polls", facts.polls},
                               {"muted", kit::encode(facts.volatilePaths)}};
    boost::json::array ignored;
    for (const auto field : file.ignoredFields) {
        if (!field.empty()) ignored.emplace_back(field);
    }
    object["ignoredFields"] = std::move(ignored);
    if (answer.reading.value) object["entries"] = answer.reading.value->entries;
    addFetchState(object, {answer.reading.fetchedAt, answer.reading.error});
    return object;
}

boost::json::object storedFindingObject(const StoredFinding& stored) {
    auto object = kit::encode(stored.finding).get_object();
    object["number"] = stored.number;
    if (const auto* file = kit::watchedFile(stored.finding.file)) {
        const auto meaning = kit::meaningOf(file->source, stored.finding.kind);
        object["name"] = file->name;
        object["address"] = file->address;
        object["canMean"] = meaning.can;
        object["cannotMean"] = meaning.cannot;
    }
    return object;
}

void printFindings(Session& session, const BackendView& view, const BackendOptions& options) {
    auto& out = session.out();
    if (view.findings.empty()) {
        out.line("Nothing has changed since the first look at these files.");
    } else {
        TextTable table({Column::whole("no."), Column::whole("seen"), Column::cut("finding", 28),
                         Column::whole("extent").dropped(2), Column::cut("file", 12).dropped(1)});
        for (const auto& [number, finding, before, after] : view.findings) {
            const auto* file = kit::watchedFile(finding.file);
            table.add({std::to_string(number), momentText(finding.seenAt),
                       printable(finding.title) + (finding.isTold ? "" : " (not told)"),
                       printable(finding.extent), std::string(file ? file->name : finding.file)});
        }
        table.print(out);
        out.line(
            out.dim("brell backend show NUMBER prints what a finding can mean, and both "
                    "states."));
    }
    const auto watches = wantedWatches(options.source);
    for (std::size_t i = 0; i < watches.size(); ++i) {
        const auto& muted = view.watches[i].volatilePaths;
        if (muted.empty()) continue;
        out.line(out.dim(printable(fmt::format("{}: muted, as it changes all the time: {}.",
                                               watches[i]->name, fmt::join(muted, ", ")))));
    }
}

int showBackend(Session& session, const BackendOptions& options) {
    const auto view = readBackend(session, options);
    requireSome(view.readings, options.stored);
    if (session.options().json) {
        boost::json::array files, findings;
        const auto watches = wantedWatches(options.source);
        for (std::size_t i = 0; i < watches.size(); ++i)
            files.push_back(watchedFileObject(*watches[i], view.readings[i], view.watches[i]));
        for (const auto& stored : view.findings) findings.push_back(storedFindingObject(stored));
        session.out().line(boost::json::serialize(
            boost::json::object{{"files", std::move(files)}, {"findings", std::move(findings)}}));
    } else {
        printFindings(session, view, options);
    }
    return finishTrackers(session, options.stored, fetchStatesOf(view.readings));
}

int showFinding(Session& session, const BackendOptions& options) {
    auto& history = session.storeForReading().findings();
    const auto stored = history.find(options.number.value_or(0));
    if (!stored) throw WrongUsage("There is no such finding.");
    const auto stateText = [&](const std::optional<std::int64_t>& number) {
        return number ? history.state(*number).value_or("") : std::string();
    };
    const auto& finding = stored->finding;
    const auto sides =
        options.lines ? kit::fileLines(finding, stateText(stored->before), stateText(stored->after))
                      : kit::entryLines(finding);
    auto& out = session.out();
    if (session.options().json) {
        auto object = storedFindingObject(*stored);
        object["evidence"] = app::findingEvidence(finding, sides).toStdString();
        out.line(boost::json::serialize(object));
        return kDone;
    }
    out.line(app::findingEvidence(finding, sides).toStdString());
    if (const auto* file = kit::watchedFile(finding.file)) {
        const auto meaning = kit::meaningOf(file->source, finding.kind);
        out.line(fmt::format("What it can mean: {}", meaning.can));
        out.line(fmt::format("What it cannot: {}", meaning.cannot));
    }
    return kDone;
}

}  // namespace

void addBackendCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<BackendOptions>();
    auto backend = app.subcommand("backend", "What changed in Apple's public files");
    backend.option("--source", options->source, "Only this file: robots, managed-versions, …")
        .shownAs("ID");
    backend.option("--since", options->since, "Only findings since then: 6h, 2d, 2026-11-02")
        .shownAs("WHEN");
    addStoredFlag(backend, options->stored);
    backend.footer(
        "A change counts once two looks in a row show it. Each file is asked for at most twice an "
        "hour, that of the versions for managed devices every ten minutes, whoever asks.");
    backend.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return showBackend(session, *options); };
    });
    auto show = backend.subcommand("show", "What a finding rests on and what it can mean");
    show.number("NUMBER", options->number, "The finding's number").required();
    show.flag("--lines", options->lines, "The lines of the file as it was sent");
    show.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return showFinding(session, *options); };
    });
}

}  // namespace cli
