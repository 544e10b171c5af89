#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"
#include "Tarnwick_Brell/CommandLine/DurationText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Trackers/TrackerReading.h"

namespace cli {

/// How old what a panel shows is, and why it is no newer.
template <class T>
void addState(std::vector<std::string>& lines, PanelHoldings& holdings,
              const app::TrackerReading<T>& reading, std::string_view what = "") {
    auto& out = holdings.session().out();
    if (reading.fetchedAt) {
        lines.push_back(out.dim(
            fmt::format("{}as of {}", what, distanceText(*reading.fetchedAt, holdings.now()))));
    }
    if (reading.error) lines.push_back(out.dim(printable(*reading.error)));
}

/// Instead of what has never been fetched.
template <class T>
std::vector<std::string> nothingYet(PanelHoldings& holdings, const app::TrackerReading<T>& reading,
                                    std::string_view command) {
    std::vector<std::string> lines{fmt::format("Not fetched yet; brell {} does.", command)};
    addState(lines, holdings, reading);
    return lines;
}

}  // namespace cli
