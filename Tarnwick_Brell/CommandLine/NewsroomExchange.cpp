#include <fmt/format.h>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/InputFile.h"
#include "Tarnwick_Brell/CommandLine/NewsroomActions.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/RecordLookup.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomExport.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace cli {

using app::NewsroomRecords;

namespace {

/// The events that a panel with alerts notifies of. Empty for kinds without alerts.
std::string alertText(const kit::NewsroomSpec& spec, const kit::PanelSpec& panel) {
    switch (kindRow(panel.kind).alert) {
        case kit::PanelAlert::none: return {};
        case kit::PanelAlert::stories: return queryText(spec.effectiveQuery(panel));
        case kit::PanelAlert::serviceStatus: return "troubles of Apple's services";
        case kit::PanelAlert::releases:
            return fmt::format("new builds of {}", fmt::join(panel.options.platforms, ", "));
        case kit::PanelAlert::records: return "filings, court entries and firmware signing";
        case kit::PanelAlert::backend:
            return "changes of the update catalogue and other files of Apple";
        case kit::PanelAlert::pages: return "changes of web pages";
    }
    return {};
}

/// Prints what an imported newsroom would do besides showing its panels.
void printEffects(Session& session, const kit::NewsroomSpec& spec) {
    for (const auto& panel : spec.panels) {
        const auto title = printable(panel.title);
        const auto told = panel.options.alerts ? alertText(spec, panel) : std::string();
        if (!told.empty()) {
            session.out().line(
                fmt::format("  {} raises notifications: {}.", title, printable(told)));
        }
        for (const auto& page : panel.options.pages)
            session.out().line(fmt::format("  {} follows {}", title, printable(page)));
    }
}

}  // namespace

int exportNewsroom(Session& session, const NewsroomOptions& options) {
    const auto records = NewsroomRecords::read(session.storeForReading().newsrooms());
    const auto& entry = named(records.entries(), options.name, "newsroom");
    session.out().write(app::exportedFile(entry));
    return kDone;
}

int importNewsroom(Session& session, const NewsroomOptions& options) {
    const auto bytes = readInput(options.file, kit::NewsroomLimits::kFileBytes);
    auto& store = options.preview ? session.storeForReading() : session.store();
    auto records = NewsroomRecords::read(store.newsrooms());
    kit::NewsroomSpec spec;
    try {
        spec = app::importedNewsroom(bytes, records);
    } catch (const kit::RecordError& error) {
        throw WorkFailed(
            fmt::format("This newsroom can't be imported: {}.", printable(error.what())));
    }
    if (!options.preview) write(session, store.newsrooms(), records.put(spec));
    if (session.options().json) {
        session.out().line(boost::json::serialize(kit::encode(spec)));
    } else {
        session.out().line(
            fmt::format("{} {}: {}, {}.", options.preview ? "Would be added:" : "Added",
                        printable(spec.name), panelsText(spec), queryText(spec.focus)));
        printEffects(session, spec);
    }
    return kDone;
}

}  // namespace cli
