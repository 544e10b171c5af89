#include "NewsroomKit/Newsrooms/GridLayout.h"
#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

using kit::NewsroomSpec;

json::object grid(const json::object& input) {
    json::array frames;
    const auto kinds = required<std::vector<kit::PanelKind>>(input, "kinds");
    for (const auto& [kind, frame] : kit::GridLayout::packed(kinds)) {
        frames.push_back({{"kind", kit::rawValue(kind)},
                          {"column", frame.column},
                          {"row", frame.row},
                          {"width", frame.width},
                          {"height", frame.height}});
    }
    return {{"frames", std::move(frames)}};
}

json::object newsroomSpec(const json::object& input) {
    const auto spec = required<NewsroomSpec>(input, "spec");
    json::array queries;
    for (const auto& panel : spec.panels)
        queries.push_back(kit::encode(spec.effectiveQuery(panel)));
    return {{"spec", kit::encode(spec)},
            {"rowsUsed", spec.rowsUsed()},
            {"queries", std::move(queries)}};
}

json::object newsroomMake(const json::object& input) {
    // The parts have a spec's keys except for the version, which the caller can't choose.
    json::object parts = input;
    parts["version"] = NewsroomSpec::kVersion;
    return {{"spec", kit::encode(NewsroomSpec::created(kit::decode<NewsroomSpec>(parts)))}};
}

}  // namespace cli::inspect
