#include <optional>

#include "Tarnwick_Brell/CommandLine/CourtActions.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Trackers/TrackedRecords.h"

namespace cli {

namespace {

using kit::DocketSheet;

constexpr std::size_t kMostCases = 500;

struct CaseView {
    kit::CachedValue<DocketSheet> reading;
    std::vector<app::SeenCase> cases;
};

CaseView readCases(Session& session, bool isStored, std::optional<kit::Instant> since) {
    const auto file = app::caseSearchFile(session.defaults().courtListenerToken());
    const auto casesIn = [&](app::LocalStore& store) {
        return app::seenCases(store.courtCases().newest(kMostCases, {}, since));
    };
    if (isStored) {
        auto& store = session.storeForReading();
        return {app::TrackerCache(store).read(file), casesIn(store)};
    }
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        app::TrackerFetcher trackerFetcher(store, fetcher.http(), &currentInstant);
        auto reading = fetcher.await(trackerFetcher.fetch(file));
        return CaseView{std::move(reading), casesIn(store)};
    });
}

void printCases(Output& out, const std::vector<app::SeenCase>& cases) {
    TextTable table({Column::whole("filed"), Column::cut("case", 16), Column::cut("court", 12),
                     Column::whole("docket"), Column::cut("cause", 10).dropped(1)});
    for (const auto& [found, firstSeen] : cases) {
        table.add({found.filed ? namedDayText(*found.filed) : dayText(firstSeen),
                   printable(found.name), printable(found.courtName), std::to_string(found.docket),
                   printable(found.cause)});
    }
    table.print(out);
}

}  // namespace

int showNewCases(Session& session, const CourtOptions& options) {
    if (session.defaults().courtListenerToken().empty()) {
        throw WorkFailed(
            "New cases are found with the token of an account at CourtListener, which is free. "
            "brell settings courtListenerToken TOKEN sets it.");
    }
    std::optional<kit::Instant> since;
    if (options.since) since = parseTimeArgument(*options.since, session.now());
    const auto view = readCases(session, options.stored, since);
    const FetchState state{view.reading.fetchedAt, view.reading.error};
    if (!view.reading.value) failWithoutData(options.stored, state);
    if (session.options().json) {
        boost::json::array list;
        for (const auto& [found, firstSeen] : view.cases) {
            auto object = kit::encode(found).get_object();
            object["firstSeen"] = kit::encode(firstSeen);
            list.push_back(std::move(object));
        }
        boost::json::object object{{"cases", std::move(list)}};
        addFetchState(object, state);
        session.out().line(boost::json::serialize(object));
    } else {
        printCases(session.out(), view.cases);
    }
    return finishTracker(session, options.stored, state);
}

}  // namespace cli
