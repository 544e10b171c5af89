#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Trackers/TrackerCache.h"

namespace cli {

/// The value that the library holds of a tracked file.
template <class T>
kit::CachedValue<T> cached(PanelHoldings& holdings, const app::TrackedFile<T>& file) {
    return app::TrackerCache(holdings.session().storeForReading()).read(file);
}

/// Says how old the data of a panel are, and why there are no newer ones. `state` is a
/// kit::PanelCondition or what a store holds of a tracker.
template <class State>
void addState(std::vector<std::string>& lines, PanelHoldings& holdings, const State& state,
              std::string_view what = "") {
    auto& out = holdings.session().out();
    if (state.fetchedAt) {
        lines.push_back(out.dim(fmt::format("{}as of {}, {}", what, momentText(*state.fetchedAt),
                                            agoText(*state.fetchedAt, holdings.now()))));
    }
    if (state.error) lines.push_back(out.dim(printable(*state.error)));
}

/// The lines of a panel of which nothing has ever been fetched.
template <class State>
std::vector<std::string> nothingYet(PanelHoldings& holdings, const State& state,
                                    std::string_view command) {
    std::vector<std::string> lines{fmt::format("Not fetched yet. brell {} fetches it.", command)};
    addState(lines, holdings, state);
    return lines;
}

}  // namespace cli
