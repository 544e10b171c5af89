#include <algorithm>
#include <vector>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"
#include "Tarnwick_Brell/CommandLine/NewsroomActions.h"
#include "Tarnwick_Brell/CommandLine/PanelText.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/RecordLookup.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace cli {

namespace {

using kit::PanelSpec;

/// By row, then by column.
std::vector<const PanelSpec*> inReadingOrder(const kit::NewsroomSpec& spec) {
    std::vector<const PanelSpec*> panels;
    for (const auto& panel : spec.panels) panels.push_back(&panel);
    std::stable_sort(panels.begin(), panels.end(), [](const PanelSpec* a, const PanelSpec* b) {
        return std::pair(a->frame.row, a->frame.column) < std::pair(b->frame.row, b->frame.column);
    });
    return panels;
}

void printPanel(Session& session, PanelHoldings& holdings, const kit::NewsroomSpec& spec,
                const PanelSpec& panel) {
    auto& out = session.out();
    std::string heading = printable(panel.title);
    if (panel.query) heading += " (" + queryText(*panel.query) + ")";
    out.line();
    out.line(out.bold(heading) + out.dim(fmt::format("  {}", rawValue(panel.kind))));
    for (const auto& line : panelLines(holdings, panel, spec.effectiveQuery(panel))) {
        const auto text = withGivenOptions(line, session.options());
        // A command for the user to type is not cut.
        out.line(text == line ? cutTo("  " + line, out.width()) : wrapped(text, out.width(), "  "));
    }
}

boost::json::value recordOf(PanelHoldings& holdings, const kit::NewsroomSpec& spec) {
    boost::json::array panels;
    for (const auto* panel : inReadingOrder(spec)) {
        boost::json::array lines;
        for (auto& line : panelLines(holdings, *panel, spec.effectiveQuery(*panel)))
            lines.emplace_back(line);
        panels.push_back({{"id", panel->id.text()},
                          {"kind", rawValue(panel->kind)},
                          {"title", panel->title},
                          {"lines", std::move(lines)}});
    }
    return {{"spec", kit::encode(spec)}, {"panels", std::move(panels)}};
}

}  // namespace

int showNewsroom(Session& session, const NewsroomOptions& options) {
    const auto records = app::NewsroomRecords::read(session.storeForReading().newsrooms());
    const auto& spec = readable(named(records.entries(), options.name, "newsroom"), "newsroom");
    PanelHoldings holdings(session, session.now());
    if (session.options().json) {
        session.out().line(boost::json::serialize(recordOf(holdings, spec)));
        return kDone;
    }
    session.out().line(session.out().bold(printable(spec.name)) +
                       (spec.focus == kit::StoryQuery() ? "" : ", " + queryText(spec.focus)));
    if (spec.panels.empty()) session.out().line("It has no panels.");
    for (const auto* panel : inReadingOrder(spec)) printPanel(session, holdings, spec, *panel);
    return kDone;
}

}  // namespace cli
