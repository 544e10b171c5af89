#pragma once

#include <string>
#include <vector>

#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// A rule that the desk has without the user having made it: a setting, a beat, or a panel with
/// alerts on.
struct BuiltInAlert {
    enum class Kind { setting, beat, panel };

    Kind kind{};
    std::string id{};      ///< as AlertAsker has it
    std::string name{};    ///< what the user calls it
    std::string target{};  ///< the setting's key, or the id of the beat or panel
    bool isOn = false;

    bool operator==(const BuiltInAlert&) const = default;
};

/// Settings first, then the beats in the user's order, then the panels with alerts on.
std::vector<BuiltInAlert> builtInAlerts(const Defaults& defaults, const BeatRecords& beats,
                                        const NewsroomRecords& newsrooms);

}  // namespace app
