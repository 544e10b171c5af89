#include "Tarnwick_Brell/CommandLine/ChangePanels.h"

#include <fmt/format.h>

#include "NewsroomKit/Panels/BackendContent.h"
#include "NewsroomKit/Panels/PagesContent.h"
#include "NewsroomKit/Panels/SigningContent.h"
#include "Tarnwick_Brell/CommandLine/PanelState.h"
#include "Tarnwick_Brell/CommandLine/PanelText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Library/KeptStore.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/KeptText.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"
#include "Tarnwick_Brell/Trackers/TrackerHistories.h"

namespace cli {

namespace {

using Lines = std::vector<std::string>;

// A build is one line, for however many devices it changed.
constexpr std::size_t kMostDevices = 40;

std::string lineOf(PanelHoldings& holdings, kit::Instant when, const std::string& sentence) {
    constexpr std::size_t kAgeColumns = 11;
    return padTo(ageText(when, holdings.now()), kAgeColumns) + " " + printable(sentence);
}

std::vector<kit::DeviceSigning> signingOf(PanelHoldings& holdings) {
    std::vector<kit::DeviceSigning> devices;
    for (const auto& device : holdings.session().defaults().signingDevices())
        devices.push_back({device, cached(holdings, app::TrackedFiles().signing(device))});
    return devices;
}

}  // namespace

Lines recordsLines(PanelHoldings& holdings, const kit::PanelSpec& panel) {
    auto& store = holdings.session().storeForReading();
    const auto content = kit::recordsContent(
        signingOf(holdings), store.signing().newest(lineCount(panel) * kMostDevices),
        app::loadLogState(store).records);
    if (!content.condition.isKnown()) return nothingYet(holdings, content.condition, "signing");
    Lines lines;
    for (const auto& row : content.rows) {
        if (lines.size() == lineCount(panel)) break;
        lines.push_back(lineOf(holdings, row.seenAt,
                               row.signing ? row.signing->title() + "." : row.record->title));
    }
    if (lines.empty()) lines.push_back(app::noRowText(panel.kind).toStdString());
    addState(lines, holdings, content.condition, "signing ");
    auto& session = holdings.session();
    if (!content.hasRecords && session.defaults().contactAddress().empty())
        lines.push_back(session.out().dim(app::noContactText().toStdString()));
    return lines;
}

Lines backendLines(PanelHoldings& holdings, const kit::PanelSpec& panel) {
    auto& store = holdings.session().storeForReading();
    const auto content = kit::backendContent(cached(holdings, app::TrackedFiles().updates()),
                                             store.offers().newest(lineCount(panel)),
                                             app::loadLogState(store).findings);
    if (!content.condition.isKnown()) return nothingYet(holdings, content.condition, "updates");
    Lines lines;
    for (const auto& finding : content.findings)
        lines.push_back(lineOf(holdings, finding.seenAt, finding.title + "."));
    for (const auto& change : content.changes)
        lines.push_back(lineOf(holdings, change.seenAt, kit::sentence(change)));
    if (lines.empty() && content.newest.empty())
        lines.push_back(app::noRowText(panel.kind).toStdString());
    if (!content.newest.empty()) lines.emplace_back("Newest offers:");
    for (const auto& offer : content.newest) {
        lines.push_back(fmt::format("{} {} {} ({})", namedDayText(offer.posted),
                                    printable(offer.platform), printable(offer.version),
                                    printable(offer.build)));
    }
    addState(lines, holdings, content.condition);
    return lines;
}

Lines clipsLines(PanelHoldings& holdings, const kit::PanelSpec& panel) {
    app::KeptStore kept(holdings.session().storeForReading(), holdings.now());
    Lines lines;
    for (const auto& clip : kept.all<kit::Clip>({.most = lineCount(panel)})) {
        const auto text = app::quoteText(clip) + QStringLiteral(" ") +
                          app::clipSourceText(clip, holdings.now(), app::Style::plain());
        lines.push_back(lineOf(holdings, clip.accessedAt, text.toStdString()));
    }
    if (lines.empty()) lines.push_back(app::noRowText(panel.kind).toStdString());
    return lines;
}

Lines pageWatchLines(PanelHoldings& holdings, const kit::PanelSpec& panel) {
    const auto pages = app::followedPages(holdings.session().storeForReading());
    Lines lines;
    for (const auto& row : kit::pageRows(pages, panel.options.pages, holdings.now())) {
        if (lines.size() == lineCount(panel)) break;
        const auto when = row.changedAt ? row.changedAt : row.lookedAt;
        const auto what = row.state == kit::PageRow::State::failing ? row.problem
                          : row.changedAt                           ? row.sentence
                                                                    : std::string(label(row.state));
        lines.push_back(lineOf(holdings, when.value_or(holdings.now()), row.name + ": " + what));
    }
    if (lines.empty()) lines.push_back(app::noRowText(panel.kind).toStdString());
    return lines;
}

}  // namespace cli
